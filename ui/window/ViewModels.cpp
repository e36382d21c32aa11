#include "ui/window/ViewModels.h"

#include "platform/UserFolders.h"

namespace nookwise {

ViewModels::ViewModels(std::shared_ptr<AppStore> store, const Platform& platform)
    : store_(std::move(store)),
      scan(*store_),
      piles(*store_),
      disk(*store_, piles),
      sidebar(*store_, piles),
      home(*store_, platform, piles, scan),
      sweep(*store_, platform.folders.home(), piles),
      duplicates(*store_, platform.clock, platform.folders.home(), piles) {}

QVariantMap ViewModels::properties() {
    return {{"scan", QVariant::fromValue(&scan)},
            {"piles", QVariant::fromValue(&piles)},
            {"disk", QVariant::fromValue(&disk)},
            {"sidebar", QVariant::fromValue(&sidebar)},
            {"home", QVariant::fromValue(&home)},
            {"sweep", QVariant::fromValue(&sweep)},
            {"duplicates", QVariant::fromValue(&duplicates)}};
}

}  // namespace nookwise
