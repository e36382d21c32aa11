// One side of the split view: a folder, what it holds, and what is selected in it.
#pragma once

#include "app/Observable.h"
#include "app/Platform.h"
#include "fileops/FolderListing.h"

#include <memory>
#include <optional>
#include <stop_token>
#include <unordered_set>
#include <vector>

namespace nookwise {

/// UI thread only; folders are listed in the background. Everything that `platform` names must
/// outlive it.
class Pane {
  public:
    using Item = FolderItem;

    /// Lists nothing until `reload`.
    Pane(const Platform& platform, FileUrl folder);
    ~Pane();
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;

    Observable<FileUrl> folder;
    /// In the order of `listFolder`; those of the folder before, until the new one has been listed.
    Observable<std::vector<Item>> items;
    Observable<std::unordered_set<FileUrl>> selection;
    Observable<bool> loading{false};

    /// The folder that `items` are of; empty before the first listing.
    const FileUrl& listed() const { return listed_; }

    /// Lists the folder in the background. A listing in progress is dropped.
    void reload();
    /// Likewise, after folders may have been moved. A folder that is gone gives way to `newPlace`,
    /// or else to the nearest folder above it that is there and that a pane may show.
    void follow(std::optional<FileUrl> newPlace);
    /// Shows another folder, with nothing selected.
    void open(const FileUrl& url);
    /// False at the home folder, above which no pane rises.
    bool canGoUp() const;
    /// Shows the folder above. From where that would lie above the home folder, shows the home
    /// folder: a pane outside it finds its way back.
    void goUp();
    /// Both panes show the other's folder, items and selection. Listings in progress are dropped:
    /// both are to be listed again.
    void exchangeWith(Pane& other);
    /// The selected items in the order of the list.
    std::vector<FileUrl> selectedInOrder() const;

  private:
    struct Landing;
    struct Listing;

    enum class WhenGone { staysEmpty, givesWay };

    void list(WhenGone whenGone, std::optional<FileUrl> newPlace);
    void land(Listing&& listing, const std::stop_token& stop);

    Platform platform_;
    FileUrl listed_;
    /// Lets a listing find the pane, for as long as there is one.
    std::shared_ptr<Landing> landing_;
    std::stop_source loadStop_{std::nostopstate};
};

}  // namespace nookwise
