// Everything that the window's content is bound to.
#pragma once

#include "app/AppStore.h"
#include "app/Platform.h"
#include "ui/activity/ActivityModel.h"
#include "ui/ask/AskModel.h"
#include "ui/bridge/DiskModel.h"
#include "ui/bridge/IndexingModel.h"
#include "ui/bridge/PilesModel.h"
#include "ui/bridge/ScanModel.h"
#include "ui/duplicates/DuplicatesModel.h"
#include "ui/home/HomeModel.h"
#include "ui/rename/RenameModel.h"
#include "ui/split/SplitModel.h"
#include "ui/sweep/ClearedModel.h"
#include "ui/sweep/SweepModel.h"
#include "ui/transfer/TransferModel.h"
#include "ui/trash/BusyModel.h"
#include "ui/trash/ToastModel.h"
#include "ui/trash/TrashSheetModel.h"
#include "ui/window/SidebarModel.h"

#include <QVariantMap>
#include <memory>

namespace nookwise {

/// One small view model per screen over one store. Must outlive the window.
class ViewModels {
  public:
    ViewModels(std::shared_ptr<AppStore> store, const Platform& platform);

    /// The models by the names under which the window requires them.
    QVariantMap properties();

  private:
    std::shared_ptr<AppStore> store_;

  public:
    ScanModel scan;
    PilesModel piles;
    DiskModel disk;
    SidebarModel sidebar;
    HomeModel home;
    IndexingModel indexing;
    AskModel ask;
    SweepModel sweep;
    ClearedModel cleared;
    DuplicatesModel duplicates;
    ActivityModel activity;
    RenameModel rename;
    SplitModel split;
    TrashSheetModel trashSheet;
    ToastModel toast;
    BusyModel busy;
    TransferModel transfer;
};

}  // namespace nookwise
