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
      indexing(*store_),
      ask(*store_, platform),
      sweep(*store_, platform.folders.home(), piles),
      cleared(*store_, piles),
      duplicates(*store_, platform.clock, platform.folders.home(), piles),
      activity(*store_, platform),
      rename(*store_),
      split(store_, platform),
      trashSheet(*store_),
      toast(*store_),
      busy(*store_),
      transfer(*store_) {}

QVariantMap ViewModels::properties() {
    return {{"scan", QVariant::fromValue(&scan)},
            {"piles", QVariant::fromValue(&piles)},
            {"disk", QVariant::fromValue(&disk)},
            {"sidebar", QVariant::fromValue(&sidebar)},
            {"home", QVariant::fromValue(&home)},
            {"indexing", QVariant::fromValue(&indexing)},
            {"ask", QVariant::fromValue(&ask)},
            {"sweep", QVariant::fromValue(&sweep)},
            {"cleared", QVariant::fromValue(&cleared)},
            {"duplicates", QVariant::fromValue(&duplicates)},
            {"activity", QVariant::fromValue(&activity)},
            {"rename", QVariant::fromValue(&rename)},
            {"split", QVariant::fromValue(&split)},
            {"trashSheet", QVariant::fromValue(&trashSheet)},
            {"toast", QVariant::fromValue(&toast)},
            {"busy", QVariant::fromValue(&busy)},
            {"transfer", QVariant::fromValue(&transfer)}};
}

}  // namespace nookwise
