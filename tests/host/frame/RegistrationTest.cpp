#include <gtest/gtest.h>

#include <QDir>
#include <QSet>
#include <QUuid>

#include "display/brd.h"
#include "formwizard/FormWizard.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/MemoryRegistry.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/RecordingControl.h"
#include "host/frame/Registration.h"
#include "numberdate/Num.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

struct ClassCase {
    const char* className;
    const char* typeName;
    const char* classId;
    const char* aboutHeader;
};

class ClassDataTest : public ::testing::TestWithParam<ClassCase> {};

TEST_P(ClassDataTest, RegisteredUnderItsTypeLibraryName) {
    const ClassCase c = GetParam();
    const QList<ClassRegistration> all = RegisteredClasses();
    const auto it = std::find_if(all.begin(), all.end(), [&](const ClassRegistration& r) {
        return r.className == QLatin1String(c.className);
    });
    ASSERT_NE(it, all.end()) << c.className;
    EXPECT_EQ(it->typeName, QLatin1String(c.typeName));
    EXPECT_EQ(it->classId, QLatin1String(c.classId));
    EXPECT_EQ(it->aboutHeader, QString::fromUtf8(c.aboutHeader));
    EXPECT_EQ(it->interfaceName, u'_' + QLatin1String(c.typeName));
    EXPECT_EQ(it->eventInterfaceName, QStringLiteral("__") + QLatin1String(c.typeName));
    Form form;
    ControlBase* byType = ControlRegistry::create(QLatin1String(c.typeName), &form);
    ASSERT_NE(byType, nullptr);
    EXPECT_EQ(byType->TypeName(), QLatin1String(c.typeName));
    EXPECT_EQ(LateGet(byType, "TypeName").toString(), QLatin1String(c.typeName));
}

INSTANTIATE_TEST_SUITE_P(
    Classes, ClassDataTest,
    ::testing::Values(
        ClassCase{"FormWizard", "FormWizard", "{98C52436-3159-4821-9514-17533A36E56A}",
                  "ctrlFormWizard V 1.23"},
        ClassCase{"fra", "fra", "{A99FD8F3-1119-48F5-B46F-607B16AC517E}", "ctrlFrame V 1.04"},
        ClassCase{"brd", "brd", "{B77268E7-D72C-4C40-85AF-5C5A5ACE1370}", "ctrlBorder V 1.03"},
        ClassCase{"des", "des", "{D2225648-4021-4AB2-88A5-FA4485F82C95}", "ctrlDescription V 1.08"},
        ClassCase{"Num", "num", "{EB05DB0C-0AC2-4B8B-9BF4-4E83E20924A2}", "ctrlZahl V 1.14"},
        ClassCase{"Dat", "dat", "{62F7F6B4-B275-4266-A997-4C9571CADECD}", "ctrlDatum V 1.12"},
        ClassCase{"Tim", "tim", "{3F276331-6215-4D4D-83B0-FEE0FE1EE639}", "ctrlZeit V 1.11"},
        ClassCase{"dti", "dti", "{3F9A4FA0-A986-4320-A41A-5840E064CF3E}", "ctrlDatumZeit V 1.12"},
        ClassCase{"Cmd", "cmd", "{80D02640-654F-43FF-9FDE-8EEDB6385DD8}",
                  "ctrlCommandButton V 1.23"},
        ClassCase{"prb", "prb", "{46F733F1-5C1B-4E57-995A-39727B65E176}", "ctrlProgressBar V 1.01"},
        ClassCase{"prc", "prc", "{AD5526DC-A7C6-483B-BDA7-390724FBAE1F}",
                  "ctrlProgressClock V 1.01"},
        ClassCase{"chb", "chb", "{3A227442-C3E9-4DF9-A174-E8C87CF9D20C}", "ctrlCheckbox V 1.07"},
        ClassCase{"rbl", "rbl", "{269014F3-1BCA-497E-B958-03D67BFA830D}",
                  "ctrlRadioButtonList V 1.09"},
        ClassCase{"mlt", "mlt", "{2AECC975-B9AE-4DEA-B285-9EB70BC2CCD3}",
                  "ctrlMultilineText V 1.06"},
        ClassCase{"Lst", "lst", "{A28CCB77-C075-4CC4-A3E2-C3D632FAE89D}", "ctrlListBox V 1.16"}),
    [](const auto& info) { return std::string(info.param.className); });

TEST(Registration, EveryIdentifierIsAWellFormedUniqueGuid) {
    QSet<QString> seen{TypeLibrary().libraryId};
    const QList<ClassRegistration> all = RegisteredClasses();
    EXPECT_GE(all.size(), 15);
    for (const ClassRegistration& r : all) {
        for (const QString& id : {r.classId, r.interfaceId, r.eventInterfaceId}) {
            EXPECT_FALSE(QUuid::fromString(id).isNull()) << r.className.toStdString();
            EXPECT_EQ(id, id.toUpper()) << r.className.toStdString();
            EXPECT_FALSE(seen.contains(id)) << id.toStdString();
            seen.insert(id);
        }
        EXPECT_FALSE(r.aboutHeader.isEmpty()) << r.className.toStdString();
    }
}

TEST(Registration, TypeLibraryAndEntryPoints) {
    const TypeLibraryInfo lib = TypeLibrary();
    EXPECT_EQ(lib.name, QStringLiteral("Vorelle"));
    EXPECT_EQ(lib.helpString, QStringLiteral("Vorelle"));
    EXPECT_EQ(lib.libraryId, QStringLiteral("{966305F4-05EE-4523-B88F-86CBC426766E}"));
    EXPECT_EQ(lib.versionMajor, 13);
    EXPECT_EQ(lib.versionMinor, 9);
    EXPECT_EQ(lib.locale, 1033);
    EXPECT_EQ(DllRegisterServer(), kVorelleOk);
    EXPECT_EQ(DllUnregisterServer(), kVorelleOk);
    int dummy = 0;
    void* object = &dummy;
    EXPECT_EQ(DllGetClassObject(nullptr, nullptr, &object), kVorelleClassNotAvailable);
    EXPECT_EQ(object, nullptr);
    {
        brd alive;
        EXPECT_EQ(DllCanUnloadNow(), kVorelleFalse);
    }
    EXPECT_EQ(DllCanUnloadNow(), kVorelleOk);
}

// --- Component registration in the store --------------------------------------------------

constexpr auto kUserClasses = u"Software\\Classes";

// A value of the store, or "<missing>".
QString storeValue(quint32 root, const QString& key, const QString& name = QString()) {
    QByteArray data;
    if (RegistryBackend::instance().readValue(root, key, name, &data) != REG_SUCCESS) {
        return QStringLiteral("<missing>");
    }
    return QString::fromLatin1(data);
}

bool keyExists(quint32 root, const QString& key) {
    RegHandle handle = 0;
    if (RegistryBackend::instance().openKey(root, key, &handle) != REG_SUCCESS) {
        return false;
    }
    RegistryBackend::instance().closeKey(handle);
    return true;
}

// A store that refuses every write after the first few.
class FailingAfterRegistry : public MemoryRegistry {
public:
    explicit FailingAfterRegistry(int allowed) : allowed_(allowed) {}
    long setValue(RegHandle key, const QString& name, const QByteArray& data) override {
        if (allowed_-- <= 0) {
            return REG_ACCESS_DENIED;
        }
        return MemoryRegistry::setValue(key, name, data);
    }

private:
    int allowed_;
};

class ClassRegistrationTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    const QString classes = QString::fromUtf16(kUserClasses);
    const QString server = QStringLiteral("/opt/vorelle/lib/vorelle.dll");
    const QString serverText = QDir::toNativeSeparators(server);
    const QString libraryKey = classes + QStringLiteral("\\TypeLib\\") + TypeLibrary().libraryId;
};

TEST_F(ClassRegistrationTest, EveryClassNamesTheServerBelowTheGivenClassesKey) {
    ASSERT_EQ(WriteClassRegistration(HKEY_CURRENT_USER, classes, server), REG_SUCCESS);
    const QList<ClassRegistration> all = RegisteredClasses();
    ASSERT_GE(all.size(), 15);
    const QString lib = TypeLibrary().libraryId;
    for (const ClassRegistration& c : all) {
        SCOPED_TRACE(c.className.toStdString());
        const QString clsid = classes + QStringLiteral("\\CLSID\\") + c.classId;
        const QString progId = QStringLiteral("Vorelle.") + c.typeName;
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid), progId);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid + QStringLiteral("\\InprocServer32")),
                  serverText);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid + QStringLiteral("\\InprocServer32"),
                             QStringLiteral("ThreadingModel")),
                  QStringLiteral("Apartment"));
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid + QStringLiteral("\\ProgID")), progId);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid + QStringLiteral("\\TypeLib")), lib);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, clsid + QStringLiteral("\\VERSION")),
                  QStringLiteral("13.9"));
        EXPECT_TRUE(keyExists(HKEY_CURRENT_USER, clsid + QStringLiteral("\\Control")));
        EXPECT_EQ(
            storeValue(HKEY_CURRENT_USER, classes + u'\\' + progId + QStringLiteral("\\CLSID")),
            c.classId);
        const QString iface = classes + QStringLiteral("\\Interface\\") + c.interfaceId;
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, iface), c.interfaceName);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER, iface + QStringLiteral("\\TypeLib")), lib);
        EXPECT_EQ(storeValue(HKEY_CURRENT_USER,
                             classes + QStringLiteral("\\Interface\\") + c.eventInterfaceId),
                  c.eventInterfaceName);
    }
    const QString version = libraryKey + QStringLiteral("\\13.9");
    EXPECT_EQ(storeValue(HKEY_CURRENT_USER, version), QStringLiteral("Vorelle"));
    EXPECT_EQ(storeValue(HKEY_CURRENT_USER,
                         version + (sizeof(void*) == 8 ? QStringLiteral("\\1033\\win64")
                                                       : QStringLiteral("\\1033\\win32"))),
              serverText);
    // The machine's classes are not touched when the user's are asked for.
    EXPECT_FALSE(keyExists(HKEY_CLASSES_ROOT, QStringLiteral("CLSID")));
}

TEST_F(ClassRegistrationTest, RemovalTakesBackItsOwnKeysAndLeavesOthers) {
    const QString foreignClass =
        classes + QStringLiteral("\\CLSID\\{0000000A-0000-0000-0000-000000000000}");
    RegSetRoot(HKEY_CURRENT_USER, foreignClass, QString(), QStringLiteral("Other.Control"));
    ASSERT_EQ(WriteClassRegistration(HKEY_CURRENT_USER, classes, server), REG_SUCCESS);
    // Written twice: the second write replaces the first.
    ASSERT_EQ(WriteClassRegistration(HKEY_CURRENT_USER, classes, server), REG_SUCCESS);

    EXPECT_EQ(RemoveClassRegistration(HKEY_CURRENT_USER, classes), REG_SUCCESS);
    for (const ClassRegistration& c : RegisteredClasses()) {
        EXPECT_FALSE(
            keyExists(HKEY_CURRENT_USER, classes + QStringLiteral("\\CLSID\\") + c.classId));
        EXPECT_FALSE(
            keyExists(HKEY_CURRENT_USER, classes + QStringLiteral("\\Vorelle.") + c.typeName));
        EXPECT_FALSE(keyExists(HKEY_CURRENT_USER,
                               classes + QStringLiteral("\\Interface\\") + c.interfaceId));
    }
    EXPECT_FALSE(keyExists(HKEY_CURRENT_USER, libraryKey));
    EXPECT_EQ(storeValue(HKEY_CURRENT_USER, foreignClass), QStringLiteral("Other.Control"));
    // Nothing left to remove is no failure.
    EXPECT_EQ(RemoveClassRegistration(HKEY_CURRENT_USER, classes), REG_SUCCESS);
}

TEST_F(ClassRegistrationTest, AnotherVersionOfTheTypeLibraryStays) {
    RegSetRoot(HKEY_CURRENT_USER, libraryKey + QStringLiteral("\\12.0"), QString(),
               QStringLiteral("Vorelle"));
    ASSERT_EQ(WriteClassRegistration(HKEY_CURRENT_USER, classes, server), REG_SUCCESS);
    ASSERT_EQ(RemoveClassRegistration(HKEY_CURRENT_USER, classes), REG_SUCCESS);
    EXPECT_FALSE(keyExists(HKEY_CURRENT_USER, libraryKey + QStringLiteral("\\13.9")));
    EXPECT_EQ(storeValue(HKEY_CURRENT_USER, libraryKey + QStringLiteral("\\12.0")),
              QStringLiteral("Vorelle"));
}

TEST(ClassRegistrationFailure, AWriteRefusedHalfWayLeavesNoEntry) {
    for (const int allowed : {0, 1, 40}) {
        SCOPED_TRACE(allowed);
        FailingAfterRegistry failing(allowed);
        ScopedService<RegistryBackend> scope(failing);
        const QString classes = QString::fromUtf16(kUserClasses);
        EXPECT_EQ(WriteClassRegistration(HKEY_CURRENT_USER, classes, QStringLiteral("C:/v.dll")),
                  REG_ACCESS_DENIED);
        for (const QString& key : {QStringLiteral("CLSID"), QStringLiteral("Interface")}) {
            RegHandle handle = 0;
            if (failing.openKey(HKEY_CURRENT_USER, classes + u'\\' + key, &handle) == REG_SUCCESS) {
                QString child;
                EXPECT_NE(failing.enumKey(handle, 0, &child), REG_SUCCESS) << child.toStdString();
                failing.closeKey(handle);
            }
        }
        for (const ClassRegistration& c : RegisteredClasses()) {
            EXPECT_FALSE(
                keyExists(HKEY_CURRENT_USER, classes + QStringLiteral("\\Vorelle.") + c.typeName));
        }
    }
}

#ifndef _WIN32
TEST(ClassRegistrationEntryPoints, OffWindowsTheyWriteNothing) {
    test::ScopedMemoryStore store;
    EXPECT_EQ(DllRegisterServer(), kVorelleOk);
    EXPECT_FALSE(keyExists(HKEY_CLASSES_ROOT, QStringLiteral("CLSID")));
    EXPECT_FALSE(keyExists(HKEY_CURRENT_USER, QStringLiteral("Software\\Classes")));
    EXPECT_EQ(DllUnregisterServer(), kVorelleOk);
}
#endif

class AboutTest : public ::testing::TestWithParam<const char*> {
protected:
    test::ScopedMemoryStore store;
    test::FakeMessageBox box;
    ScopedService<MessageBox> scope{box};
    void TearDown() override { setLanguage("en"); }
    static void setLanguage(const char* language) {
        RegSet(QStringLiteral("Vorelle"), QStringLiteral("Config"), QStringLiteral("Sprache"),
               QString::fromUtf8(language));
        LanguageLoad();
    }
};

TEST_P(AboutTest, TheSameGermanTextInEveryLanguageAndMode) {
    setLanguage(GetParam());
    Form running;
    Form designer;
    designer.setUserMode(false);
    auto* border = new brd(&running);
    border->startFrom(PropertyBag());
    border->ShowAbout();
    auto* designBorder = new brd(&designer);
    designBorder->startFrom(PropertyBag());
    LateCall(designBorder, "ShowAbout");
    auto* number = new Num(&running);
    number->ShowAbout();
    auto* manager = new FormWizard(&running);
    manager->ShowAbout();

    ASSERT_EQ(box.shown.size(), 4);
    const QString tail = QStringLiteral(
        "\r\n\r\nPart of Vorelle V 6.71 (Build 285)\r\n(c) Haldrake Software - www.haldrake.de");
    EXPECT_EQ(box.shown[0].text,
              QStringLiteral("ctrlBorder V 1.03\r\nDurchsichtiger 3D-Rahmen") + tail);
    EXPECT_EQ(box.shown[0].style, 0);
    EXPECT_EQ(box.shown[1].text, box.shown[0].text);
    EXPECT_EQ(box.shown[2].text,
              QStringLiteral("ctrlZahl V 1.14\r\nEingabefeld für numerische Werte "
                             "(internationalisiert)") +
                  tail);
    EXPECT_TRUE(box.shown[3].text.startsWith(
        QStringLiteral("ctrlFormWizard V 1.23\r\nÄndert das Verhalten des Fensters, auf dem es "
                       "platziert wird:\r\n")));
    EXPECT_TRUE(box.shown[3].text.endsWith(tail));
    EXPECT_EQ(box.shown[3].text.count(QStringLiteral("\r\n")), 5);
}

INSTANTIATE_TEST_SUITE_P(Languages, AboutTest, ::testing::Values("de", "en"));

}  // namespace
}  // namespace vorelle
