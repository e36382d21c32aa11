#include "app/AppStore.h"

#include <chrono>
#include <utility>

namespace nookwise {
namespace {

constexpr std::chrono::seconds toastLifetime{8};

}  // namespace

void AppStore::showToast(std::string message, std::optional<Uuid> entryID, ToastLife life) {
    toastTimer_.reset();
    toast.set(Toast{.id = Uuid::random(), .message = std::move(message), .entryID = entryID});
    if (life == ToastLife::sticky) return;
    toastTimer_ = platform_.tasks.after(toastLifetime, [weak = weak_from_this()] {
        if (const auto store = weak.lock()) store->toast.set(std::nullopt);
    });
}

void AppStore::closeToast() {
    toastTimer_.reset();
    toast.set(std::nullopt);
}

void AppStore::undoFromToast() {
    closeToast();
    undoLast();
}

}  // namespace nookwise
