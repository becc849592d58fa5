// .reg files as `vorelle-reg import` reads them: decoded, parsed and applied to the SQLite
// store in one group. A damaged file (parse error) or a failed group changes nothing in
// the store; a file that was imported exports again to a text that imports without a
// fault and changes nothing more.

#include <QStringList>

#include <array>

#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"
#include "support/FuzzHost.h"

using namespace vorelle;
using namespace vorelle::fuzz;

namespace {

constexpr std::array<quint32, 4> kRoots = {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE,
                                           HKEY_USERS};

std::unique_ptr<SqliteRegistry> g_store;
QString g_baseline;

QString dump() {
    QString out;
    for (const quint32 root : kRoots) {
        out += RegFile::exportText(root, QString());
    }
    return out;
}

void plantBaseline() {
    for (const quint32 root : kRoots) {
        RegDeleteTree(root, QString());
    }
    RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("de"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain"), QStringLiteral("txt.Text_de"),
           QStringLiteral("Zeile 1\r\nZeile 2"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain\\Pos"), QStringLiteral("Größe"),
           QStringLiteral("€ ‚ƒ„…†‡ˆ‰Š"));
    RegSetRoot(HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Lager\\Raw"), QString(),
               QStringLiteral("unnamed"));
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const QString& folder = StartHost();
    g_store = std::make_unique<SqliteRegistry>(folder + QStringLiteral("/import.db"));
    RegistryBackend::setInstance(g_store.get());
    plantBaseline();
    g_baseline = dump();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    RegFile file;
    if (!file.parse(RegFile::decode(bytes))) {
        if (file.errorLine() < 1 || file.errorMessage().isEmpty()) {
            Fail(
                "regfile",
                QStringLiteral("a damaged file without line (%1) or reason").arg(file.errorLine()));
        }
        if (!file.changes().isEmpty()) {
            Fail("regfile", QStringLiteral("a damaged file still has changes"));
        }
        return 0;  // nothing is applied, as the tool does
    }
    const long status = file.apply();
    std::array<QString, kRoots.size()> exports;
    for (std::size_t i = 0; i < kRoots.size(); ++i) {
        exports[i] = RegFile::exportText(kRoots[i], QString());
    }
    const QString after = exports[0] + exports[1] + exports[2] + exports[3];
    if (status != REG_SUCCESS) {
        if (after != g_baseline) {
            Fail("regfile",
                 QStringLiteral("a failed import (status %1) changed the store:\n%2\nwas:\n%3")
                     .arg(status)
                     .arg(after, g_baseline));
        }
        return 0;
    }
    // Every root's export imports again without a fault; together they change nothing.
    for (const QString& exported : exports) {
        if (exported.isEmpty()) {
            continue;
        }
        RegFile again;
        if (!again.parse(RegFile::decode(RegFile::encode(exported)))) {
            Fail("regfile", QStringLiteral("an export does not import: line %1: %2\n%3")
                                .arg(again.errorLine())
                                .arg(again.errorMessage(), exported));
        }
        const long reapplied = again.apply();
        if (reapplied != REG_SUCCESS) {
            Fail("regfile", QStringLiteral("importing an export failed (status %1)\n%2")
                                .arg(reapplied)
                                .arg(exported));
        }
    }
    if (dump() != after) {
        Fail("regfile", QStringLiteral("importing the exports changed the store\n%1").arg(after));
    }
    if (after != g_baseline) {
        // Emptying a root leaves the root's own key, so the planted store is read anew.
        plantBaseline();
        g_baseline = dump();
    }
    return 0;
}
