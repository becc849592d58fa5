#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>

#include "ProbeForm.h"
#include "TestProbe.h"
#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"
#include "host/form/UiDocument.h"

namespace vorelle {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

QString data(const char* name) {
    return QStringLiteral(VORELLE_TEST_DATA "/") + QString::fromLatin1(name);
}

QStringList names(const QList<QWidget*>& widgets) {
    QStringList result;
    for (const QWidget* w : widgets) {
        result.append(w->objectName());
    }
    return result;
}

TestProbe* probe(const Form& form, const char* name) {
    return qobject_cast<TestProbe*>(form.Controls(QString::fromLatin1(name)));
}

// Everything that makes two loaded forms the same form.
struct Snapshot {
    QString name;
    QString caption;
    QSize size;
    QStringList controls;
    QStringList details;  // per widget: class, geometry and, for controls, the saved bag

    explicit Snapshot(const Form& form)
        : name(form.Name()),
          caption(form.Caption()),
          size(form.size()),
          controls(names(form.Controls())) {
        for (const QWidget* w : form.Controls()) {
            QString line =
                QStringLiteral("%1 %2 %3,%4 %5x%6")
                    .arg(w->objectName(), QString::fromLatin1(w->metaObject()->className()))
                    .arg(w->x())
                    .arg(w->y())
                    .arg(w->width())
                    .arg(w->height());
            if (const auto* control = qobject_cast<const ControlBase*>(w)) {
                const PropertyBag bag = control->save();
                for (const PropertyBag::Entry& e : bag.entries()) {
                    line += QStringLiteral(" %1=%2").arg(e.name, e.value.toString());
                }
            } else if (const auto* label = qobject_cast<const QLabel*>(w)) {
                line += QStringLiteral(" text=") + label->text();
            } else if (const auto* button = qobject_cast<const QPushButton*>(w)) {
                line += QStringLiteral(" text=") + button->text();
            }
            details.append(line);
        }
    }

    bool operator==(const Snapshot&) const = default;
};

void PrintTo(const Snapshot& s, std::ostream* os) {
    *os << s.name.toStdString() << " [" << s.details.join(QStringLiteral("; ")).toStdString()
        << "]";
}

class FormLoaderTest : public ::testing::Test {
protected:
    void SetUp() override { TestProbe::events().clear(); }

    MemoryRegistry registry;
    ScopedService<RegistryBackend> store{registry};
    QTemporaryDir temp;
};

// --- Building ---------------------------------------------------------------------------------

TEST_F(FormLoaderTest, BuildsPlainWidgetsAndControlsInCollectionOrder) {
    const auto form = FormLoader::load(data("probes.ui"));
    EXPECT_EQ(form->Name(), QStringLiteral("frmProbes"));
    EXPECT_EQ(form->Caption(), QStringLiteral("Proben"));
    EXPECT_EQ(form->size(), QSize(420, 300));
    EXPECT_EQ(form->BackColor(), 0xFFF8F0);  // a property of the form class itself
    // Controls inside a group box and a frame belong to the form's collection.
    EXPECT_THAT(names(form->Controls()), ElementsAre("lblTitle", "prbOne", "grpInner", "prbTwo",
                                                     "fraInner", "prbThree", "cmdPlain"));
    EXPECT_EQ(qobject_cast<QLabel*>(form->Controls(QStringLiteral("lblTitle")))->text(),
              QStringLiteral("Überschrift & mehr"));
    EXPECT_EQ(form->Controls(QStringLiteral("prbTwo"))->parent(),
              form->Controls(QStringLiteral("grpInner")));
    EXPECT_EQ(form->Controls(QStringLiteral("prbThree"))->parent(),
              form->Controls(QStringLiteral("fraInner")));
}

TEST_F(FormLoaderTest, ControlsReadEveryKindOfValueFromTheFile) {
    const auto form = FormLoader::load(data("probes.ui"));
    const TestProbe* one = probe(*form, "prbOne");
    ASSERT_NE(one, nullptr);
    EXPECT_EQ(one->geometry(), QRect(10, 40, 120, 60));
    EXPECT_EQ(one->ForeColor(), 0x1000FF);  // red 255, blue 16 as an OLE colour
    EXPECT_EQ(one->BackColor(), TestProbe::kBackColor);
    EXPECT_EQ(one->Caption_de(), QStringLiteral("Eins"));
    EXPECT_EQ(one->Caption_en(), QStringLiteral("One"));
    EXPECT_EQ(one->Count(), 7);
    EXPECT_DOUBLE_EQ(one->Ratio(), 0.25);
    EXPECT_TRUE(one->Flag());
    EXPECT_EQ(one->style(), TestProbe::Sunken);
    EXPECT_EQ(one->Font().family(), QStringLiteral("DejaVu Sans"));
    EXPECT_EQ(one->Font().pointSize(), 12);
    EXPECT_TRUE(one->Font().bold());
    EXPECT_DOUBLE_EQ(one->ResizingMoveHor(), 0.5);
    EXPECT_EQ(one->FormName(), QStringLiteral("frmProbes"));
    EXPECT_EQ(one->ControlName(), QStringLiteral("prbOne"));
    EXPECT_TRUE(one->isStarted());
    // A control given by its type name.
    EXPECT_EQ(probe(*form, "prbTwo")->Caption_en(), QStringLiteral("Two"));
}

TEST_F(FormLoaderTest, StartUpCreatesAllThenStartsEachInOrderThenLoads) {
    ProbeForm form;
    FormLoader::loadInto(form, data("probes.ui"));
    EXPECT_EQ(form.Name(), QStringLiteral("frmProbes"));
    EXPECT_THAT(TestProbe::events(),
                ElementsAre("create", "create", "create",                                   //
                            "init:prbOne", "read:prbOne:run", "resize:prbOne:120x60",       //
                            "init:prbTwo", "read:prbTwo:run", "resize:prbTwo:90x45",        //
                            "init:prbThree", "read:prbThree:run", "resize:prbThree:30x15",  //
                            "Load", "Form_Load2"));
}

TEST_F(FormLoaderTest, DesignModeReadsPropertiesWithoutRunTimeWork) {
    ProbeForm form;
    FormLoader::loadInto(form, data("probes.ui"), FormLoader::Options{.designMode = true});
    EXPECT_FALSE(form.UserMode());
    const QStringList& events = TestProbe::events();
    EXPECT_TRUE(events.contains(QStringLiteral("read:prbOne:design")));
    EXPECT_FALSE(events.contains(QStringLiteral("Load")));
    EXPECT_FALSE(events.contains(QStringLiteral("Form_Load2")));
}

// --- Saving -----------------------------------------------------------------------------------

TEST_F(FormLoaderTest, LoadSaveLoadGivesTheSameForm) {
    auto first = FormLoader::load(data("probes.ui"));
    // Changes at run time: a value, a control's and a plain widget's geometry.
    probe(*first, "prbTwo")->setCount(-3);
    probe(*first, "prbOne")->setBackColor(0x80000005);
    probe(*first, "prbThree")->setGeometry(7, 8, 40, 20);
    qobject_cast<QWidget*>(first->Controls(QStringLiteral("cmdPlain")))->move(150, 60);
    const QString path = temp.filePath(QStringLiteral("saved.ui"));
    FormLoader::save(*first, path);

    const auto second = FormLoader::load(path);
    EXPECT_EQ(Snapshot(*second), Snapshot(*first));
    EXPECT_EQ(probe(*second, "prbTwo")->Count(), -3);
    EXPECT_EQ(probe(*second, "prbOne")->BackColor(), static_cast<qint32>(0x80000005));
    EXPECT_EQ(probe(*second, "prbThree")->geometry(), QRect(7, 8, 40, 20));
    // Saving what was loaded from a saved file gives the same file.
    EXPECT_EQ(FormLoader::toXml(*second), FormLoader::toXml(*first));
}

TEST_F(FormLoaderTest, SavedFileLeavesDefaultsOutAndKeepsPlainWidgets) {
    const auto form = FormLoader::load(data("probes.ui"));
    const UiDocument saved =
        UiDocument::parse(FormLoader::toXml(*form), QStringLiteral("saved.ui"));
    const UiNode* top = saved.root.child(QStringLiteral("widget"));
    ASSERT_NE(top, nullptr);

    auto propertiesOf = [&](const QString& name) {
        QStringList props;
        std::function<const UiNode*(const UiNode&)> find = [&](const UiNode& n) -> const UiNode* {
            for (const UiNode& c : n.children) {
                if (c.tag == u"widget" && c.attribute(QStringLiteral("name")) == name) {
                    return &c;
                }
                if (const UiNode* hit = find(c)) {
                    return hit;
                }
            }
            return nullptr;
        };
        const UiNode* w = find(*top);
        for (const UiNode& c : w ? w->children : std::vector<UiNode>{}) {
            if (c.tag == u"property") {
                props.append(c.attribute(QStringLiteral("name")) + u':' + c.children.front().tag);
            }
        }
        return props;
    };
    // BackColor and Count stood in the file with their default values.
    EXPECT_THAT(propertiesOf(QStringLiteral("prbTwo")),
                ElementsAre("geometry:rect", "Caption_en:string"));
    EXPECT_THAT(propertiesOf(QStringLiteral("prbThree")), ElementsAre("geometry:rect"));
    // The colour keeps its form; the enumeration is written by name.
    EXPECT_THAT(propertiesOf(QStringLiteral("prbOne")),
                ElementsAre("geometry:rect", "ForeColor:color", "Caption_de:string",
                            "Caption_en:string", "Count:number", "Ratio:double", "Flag:bool",
                            "Style:enum", "Font:font", "ResizingMoveHor:double"));
    EXPECT_THAT(propertiesOf(QStringLiteral("fraInner")),
                ElementsAre("geometry:rect", "frameShape:enum"));
    EXPECT_THAT(FormLoader::toXml(*form).toStdString(),
                HasSubstr("<enum>vorelle::TestProbe::Sunken</enum>"));
    EXPECT_THAT(FormLoader::toXml(*form).toStdString(),
                HasSubstr("<class>vorelle::TestProbe</class>"));
}

TEST_F(FormLoaderTest, FormBuiltInCodeIsSavedAndLoadsBack) {
    Form form;
    form.setName(QStringLiteral("frmCode"));
    form.setCaption(QStringLiteral("Im Code"));
    form.resize(300, 200);
    auto* group = new QGroupBox(&form);
    group->setObjectName(QStringLiteral("grpCode"));
    group->setGeometry(5, 5, 200, 100);
    auto* inner = new TestProbe(group);
    inner->setObjectName(QStringLiteral("prbCode"));
    inner->setGeometry(10, 20, 50, 30);
    inner->startNew();
    inner->setCount(5);
    const QString path = temp.filePath(QStringLiteral("code.ui"));
    FormLoader::save(form, path);

    const auto loaded = FormLoader::load(path);
    EXPECT_EQ(Snapshot(*loaded), Snapshot(form));
}

TEST_F(FormLoaderTest, UnwritableFileIsReportedAndNothingIsWritten) {
    const auto form = FormLoader::load(data("probes.ui"));
    const QString path = temp.filePath(QStringLiteral("missing/folder/form.ui"));
    try {
        FormLoader::save(*form, path);
        FAIL() << "no error";
    } catch (const UiFileError& e) {
        EXPECT_EQ(e.file(), path);
        EXPECT_THAT(e.message().toStdString(), HasSubstr(path.toStdString()));
    }
    EXPECT_FALSE(QFile::exists(path));
}

// --- Faults -----------------------------------------------------------------------------------

struct Fault {
    const char* file;
    int line;
    const char* property;  // "" when the fault is not in a value
    const char* says;
};

void PrintTo(const Fault& f, std::ostream* os) {
    *os << f.file;
}

class FormLoaderFault : public FormLoaderTest, public ::testing::WithParamInterface<Fault> {
protected:
    void expectError(const UiFileError& e) const {
        const Fault& f = GetParam();
        const QString path = data(f.file);
        EXPECT_EQ(e.file(), path);
        EXPECT_EQ(e.line(), f.line);
        EXPECT_EQ(e.property(), QString::fromLatin1(f.property));
        const std::string message = e.message().toStdString();
        EXPECT_THAT(message,
                    HasSubstr(QStringLiteral("%1:%2:").arg(path).arg(f.line).toStdString()));
        EXPECT_THAT(message, HasSubstr(f.says));
        if (*f.property) {
            EXPECT_THAT(
                message,
                HasSubstr(
                    QStringLiteral("'%1'").arg(QString::fromLatin1(f.property)).toStdString()));
        }
    }
};

TEST_P(FormLoaderFault, LoadGivesOneErrorAndBuildsNothing) {
    const qsizetype widgets = QApplication::allWidgets().size();
    const qsizetype forms = Form::loadedForms().size();
    try {
        FormLoader::load(data(GetParam().file));
        FAIL() << "no error";
    } catch (const UiFileError& e) {
        expectError(e);
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(Form::loadedForms().size(), forms);
    EXPECT_FALSE(TestProbe::events().contains(QStringLiteral("Load")));
}

TEST_P(FormLoaderFault, LoadIntoLeavesTheTargetAsItWas) {
    ProbeForm form;
    form.setName(QStringLiteral("frmBefore"));
    form.setCaption(QStringLiteral("Vorher"));
    form.resize(111, 77);
    auto* label = new QLabel(QStringLiteral("bleibt"), &form);
    label->setObjectName(QStringLiteral("lblStays"));
    const QObjectList children = form.children();
    const qsizetype widgets = QApplication::allWidgets().size();
    try {
        FormLoader::loadInto(form, data(GetParam().file));
        FAIL() << "no error";
    } catch (const UiFileError& e) {
        expectError(e);
    }
    EXPECT_EQ(form.Name(), QStringLiteral("frmBefore"));
    EXPECT_EQ(form.Caption(), QStringLiteral("Vorher"));
    EXPECT_EQ(form.size(), QSize(111, 77));
    EXPECT_TRUE(form.UserMode());
    EXPECT_EQ(form.children(), children);
    EXPECT_THAT(names(form.Controls()), ElementsAre("lblStays"));
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_FALSE(TestProbe::events().contains(QStringLiteral("Form_Load2")));
}

INSTANTIATE_TEST_SUITE_P(
    DamagedFiles, FormLoaderFault,
    ::testing::Values(Fault{"damaged_xml.ui", 7, "", "damaged form file"},
                      Fault{"not_a_form.ui", 2, "", "<form>, not <ui>"},
                      Fault{"unknown_class.ui", 5, "", "unknown widget class 'QFancyThing'"},
                      Fault{"unknown_element.ui", 5, "", "unknown element <gadget>"},
                      Fault{"duplicate_name.ui", 5, "", "a second control named 'PRBONE'"},
                      Fault{"bad_number.ui", 6, "Count", "'zwölf', which is not a whole number"},
                      Fault{"bad_enum.ui", 6, "Style",
                            "'vorelle::TestProbe::Wobbly' is not a value of Style"}));

// The second control's value is of the wrong type: the first one has started already.
INSTANTIATE_TEST_SUITE_P(
    WrongPropertyTypes, FormLoaderFault,
    ::testing::Values(Fault{"wrong_type.ui", 20, "Count", "control 'prbTwo' (vorelle::TestProbe)"},
                      Fault{"wrong_bool.ui", 6, "Flag",
                            "'vielleicht', which is not a value of type bool"},
                      Fault{"wrong_form_property.ui", 8, "BackColor", "does not take 'hellgrau'"}));

TEST_F(FormLoaderTest, MissingFileIsReported) {
    const QString path = data("no_such_form.ui");
    try {
        FormLoader::load(path);
        FAIL() << "no error";
    } catch (const UiFileError& e) {
        EXPECT_EQ(e.file(), path);
        EXPECT_EQ(e.line(), 0);
    }
}

}  // namespace
}  // namespace vorelle
