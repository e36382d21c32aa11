// A split view over a home with a few files.
#pragma once

#include "tests/ui/StoreFixture.h"
#include "ui/split/SplitModel.h"

#include <chrono>

namespace nookwise {

class SplitFixture : public StoreFixture {
  protected:
    SplitFixture() {
        addFolder("/home/user/Downloads/Fernhill", 0.2);
        add("/home/user/Downloads/Fernhill/plan.pdf", 1, 3);
        add("/home/user/Downloads/Invoice 2207.pdf", 2, 1);
        add("/home/user/Downloads/lighting.json", 3, 2);
        add("/home/user/Downloads/workshop.zip", 40, 3);
        addFolder("/home/user/Documents/Glazes", 1);
        add("/home/user/Documents/Seed list.rtf", 1, 4);
        split.show();
        fake.tasks.runEverything();
    }

    Date daysAgo(double days) const { return fake.clock.now() - Seconds(days * 86'400); }

    void add(std::string_view path, std::int64_t megabytes, double daysOld) {
        fake.files.addFile(path, {.size = megabytes * megabyte,
                                  .modified = daysAgo(daysOld),
                                  .added = daysAgo(daysOld)});
    }

    void addFolder(std::string_view path, double daysOld) {
        fake.files.addFolder(path);
        fake.files.setAttributes(
            path,
            {.type = FileType::folder, .modified = daysAgo(daysOld), .added = daysAgo(daysOld)});
    }

    /// Everything that waits to be done, listings and transfers, is done.
    void run() { fake.tasks.runEverything(); }

    static QStringList names(PaneModel* pane) { return texts(pane->rows(), "name"); }

    static QStringList selected(PaneModel* pane) {
        QStringList all;
        for (int row = 0; row < pane->rows()->rowCount(); ++row) {
            if (value(pane->rows(), row, "selected").toBool())
                all += text(pane->rows(), row, "name");
        }
        return all;
    }

    static int rowOf(PaneModel* pane, const char* name) {
        return static_cast<int>(names(pane).indexOf(QString::fromUtf8(name)));
    }

    void choose(PaneModel* pane, const char* name, uint modifiers = Qt::NoModifier) {
        pane->press(rowOf(pane, name), modifiers);
        pane->release();
    }

    void open(PaneModel* pane, const char* name) {
        pane->open(rowOf(pane, name));
        run();
    }

    SplitModel split{store, fake.platform()};
    PaneModel* left = split.left();
    PaneModel* right = split.right();
};

}  // namespace nookwise
