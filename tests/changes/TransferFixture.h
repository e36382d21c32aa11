// Moving and copying inside one file system and to another.
#pragma once

#include "platform/linux/Transfer.h"
#include "tests/changes/Snapshot.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <memory>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nookwise {

enum class Verb { move, copy };
enum class Ground { same, other };

/// Where there is memory to keep files in; on most systems not the file system of the temporary
/// folder.
inline constexpr const char* otherGround = "/dev/shm";

inline bool isOtherFileSystem(const std::filesystem::path& a, const std::filesystem::path& b) {
    struct stat first {};
    struct stat second {};
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
           first.st_dev != second.st_dev;
}

/// `home` holds what is moved or copied, `target` is where it goes.
class TransferFixture : public testing::Test {
  protected:
    void useGround(Ground ground) {
        if (ground == Ground::same) {
            target_ = std::make_unique<TemporaryFolder>();
            return;
        }
        if (!isOtherFileSystem(home.path(), otherGround))
            GTEST_SKIP() << "there is no second file system here";
        target_ = std::make_unique<TemporaryFolder>(otherGround);
    }

    Result<std::monostate> run(Verb verb, const FileUrl& from, const FileUrl& to,
                               const CopyWatch& watch = {}) const {
        return verb == Verb::move ? moveItem(from, to, unfinished, watch)
                                  : copyItem(from, to, unfinished, watch);
    }

    const TemporaryFolder& target() const { return *target_; }

    /// What is under way is recorded here, and nothing stays.
    std::string recordNames() const {
        return std::filesystem::exists(own.path("unfinished")) ? names(own.path("unfinished")) : "";
    }

    const TemporaryFolder home;
    const TemporaryFolder own;
    const Unfinished unfinished{own.url("unfinished")};

  private:
    std::unique_ptr<TemporaryFolder> target_;
};

using Way = std::tuple<Verb, Ground>;

/// The tests that hold for every way of transferring.
class EveryTransfer : public TransferFixture, public testing::WithParamInterface<Way> {
  protected:
    void SetUp() override { useGround(std::get<Ground>(GetParam())); }
    bool isMove() const { return std::get<Verb>(GetParam()) == Verb::move; }

    bool isRenaming() const { return isMove() && std::get<Ground>(GetParam()) == Ground::same; }

    Result<std::monostate> transfer(const FileUrl& from, const FileUrl& to,
                                    const CopyWatch& watch = {}) const {
        return run(std::get<Verb>(GetParam()), from, to, watch);
    }
    Result<std::monostate> transfer(std::string_view name, const CopyWatch& watch = {}) const {
        return transfer(home.url(name), target().url(name), watch);
    }

    /// That `name` goes over whole, and that only a move takes it away.
    void expectWhole(const std::string& name) const {
        const auto before = snapshot(home.path(name));
        const auto done = transfer(name);
        ASSERT_TRUE(done) << done.error().code.message();
        EXPECT_EQ(snapshot(target().path(name)), before);
        if (isMove()) {
            EXPECT_EQ(names(home.path()), "");
        } else {
            EXPECT_EQ(snapshot(home.path(name)), before);
        }
        EXPECT_EQ(names(target().path()), name);
        EXPECT_EQ(recordNames(), "");
    }

    /// That it fails for that reason, changes nothing and leaves nothing.
    void expectRefused(const FileUrl& from, const FileUrl& to, std::errc reason) const {
        const auto homeBefore = snapshot(home.path());
        const auto targetBefore = names(target().path());
        const auto done = transfer(from, to);
        ASSERT_FALSE(done);
        EXPECT_EQ(done.error().code, reason) << done.error().code.message();
        EXPECT_EQ(withoutTheRoot(snapshot(home.path())), withoutTheRoot(homeBefore));
        EXPECT_EQ(names(target().path()), targetBefore);
        EXPECT_EQ(recordNames(), "");
    }

  private:
    /// A name that came and went moved the time of the folder it was in.
    static std::map<std::string, std::string> withoutTheRoot(
        std::map<std::string, std::string> lines) {
        lines.erase("");
        return lines;
    }
};

inline const auto everyWay = testing::Combine(testing::Values(Verb::move, Verb::copy),
                                              testing::Values(Ground::same, Ground::other));

inline std::string wayName(const testing::TestParamInfo<Way>& info) {
    const auto [verb, ground] = info.param;
    return std::string(verb == Verb::move ? "move" : "copy") +
           (ground == Ground::same ? "InsideOneFileSystem" : "ToAnotherFileSystem");
}

}  // namespace nookwise
