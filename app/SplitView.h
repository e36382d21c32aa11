// Two folders side by side.
#pragma once

#include "app/AppStore.h"
#include "app/Pane.h"
#include "platform/Tasks.h"

#include <memory>
#include <vector>

namespace nookwise {

/// UI thread only.
class SplitView {
  public:
    enum class Side { left, right };

    /// Downloads on the left, Documents on the right. Lists nothing until `show`.
    SplitView(std::shared_ptr<AppStore> store, const Platform& platform);

    Pane left;
    Pane right;
    Observable<Side> active{Side::left};

    Pane& pane(Side side) { return side == Side::left ? left : right; }
    Pane& activePane() { return pane(active.get()); }
    Pane& otherPane() { return pane(active.get() == Side::left ? Side::right : Side::left); }

    /// Lists both folders, as whenever the view comes into sight. From then on, until the store
    /// shows another section, they are listed again after every change to files. A folder that was
    /// moved meanwhile is shown at its new place.
    void show();
    /// The selected items of the active side, to the other side's folder.
    void transferSelected(TransferKind kind);
    /// What was dropped on a side, into its folder. The home folder and what lies above it are not
    /// moved, and what lies in a folder that is dropped too goes with that. What cannot be moved, a
    /// folder into itself for one, stays where it is.
    void drop(const std::vector<FileUrl>& urls, Side side, TransferKind kind);
    /// What was dropped on a folder that a side lists, into that folder.
    void dropInto(const std::vector<FileUrl>& urls, const FileUrl& folder, TransferKind kind);
    /// The sides exchange their folders, with what is selected in them.
    void swapSides();

  private:
    /// Lists both folders soon, once however often it is asked for until then, if they are in
    /// sight.
    void refresh();
    void followFolders();

    std::shared_ptr<AppStore> store_;
    const UserFolders& folders_;
    Tasks& tasks_;
    /// Lets a refresh find the view, for as long as there is one.
    std::shared_ptr<SplitView*> self_;
    bool isInSight_ = false;
    bool isRefreshing_ = false;
    Subscription version_;
    Subscription activity_;
    Subscription section_;
};

}  // namespace nookwise
