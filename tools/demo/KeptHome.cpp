#include "tools/demo/KeptHome.h"

#include "tools/demo/Agreement.h"

#include <QFile>
#include <QSaveFile>
#include <filesystem>
#include <string>
#include <utility>

namespace nookwise::demo {
namespace {

constexpr std::string_view homeName = "home";
/// Written last: a home without it was not made to its end.
constexpr std::string_view agreementName = "home-agreed";

QString qtPath(const FileUrl& url) {
    return QFile::decodeName(std::string(url.path()).c_str());
}

std::optional<KeptHome> leftHome(const OwnFolder& own) {
    const auto home = own.url().append(homeName);
    std::error_code ignored;
    const auto status = std::filesystem::symlink_status(std::string(home.path()), ignored);
    QFile file(qtPath(own.url().append(agreementName)));
    if (!std::filesystem::is_directory(status) || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    auto agreed = agreementFromText(file.readAll().toStdString(), home);
    if (!agreed) return std::nullopt;
    return KeptHome{home, std::move(*agreed)};
}

Result<std::monostate> keep(const OwnFolder& own, const KeptHome& made) {
    const auto url = own.url().append(agreementName);
    QSaveFile file(qtPath(url));
    const auto text = agreementText(made.agreed, made.home);
    const bool kept = file.open(QIODevice::WriteOnly) &&
                      file.write(text.data(), static_cast<qint64>(text.size())) >= 0 &&
                      file.commit();
    if (!kept) return FileError{std::make_error_code(std::errc::io_error), url, "write"};
    return std::monostate{};
}

}  // namespace

Result<KeptHome> keptHome(const OwnFolder& own, Date now, const HomeMaker& make) {
    if (auto left = leftHome(own)) return std::move(*left);
    // Before anything of the new home is there, so that it cannot pass for a finished one.
    if (const auto removed = own.remove(agreementName); !removed) return removed.error();
    auto home = own.makeAnew(homeName);
    if (!home) return home.error();
    auto agreed = make(home.value(), now);
    if (!agreed) return agreed.error();
    KeptHome made{std::move(home.value()), std::move(agreed.value())};
    if (const auto kept = keep(own, made); !kept) return kept.error();
    return made;
}

}  // namespace nookwise::demo
