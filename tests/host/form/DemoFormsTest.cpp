#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "display/brd.h"
#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"
#include "host/frame/Shape.h"

namespace vorelle {
namespace {

// Every form the demo ships, whoever added it.
std::vector<std::string> demoForms() {
    std::vector<std::string> files;
    const QDir dir(QStringLiteral(VORELLE_SOURCE_DIR "/apps/demo/forms"));
    for (const QString& name : dir.entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name)) {
        files.push_back(name.toStdString());
    }
    return files;
}

QString pathOf(const std::string& name) {
    return QStringLiteral(VORELLE_SOURCE_DIR "/apps/demo/forms/") + QString::fromStdString(name);
}

// A control's identity and persisted state, in collection order.
QStringList state(const Form& form) {
    QStringList result;
    for (const QWidget* w : form.Controls()) {
        QString line =
            w->objectName() + u' ' + QString::fromLatin1(w->metaObject()->className()) +
            QStringLiteral(" %1,%2 %3x%4").arg(w->x()).arg(w->y()).arg(w->width()).arg(w->height());
        if (const auto* control = qobject_cast<const ControlBase*>(w)) {
            const PropertyBag bag = control->save();
            for (const PropertyBag::Entry& e : bag.entries()) {
                line += QStringLiteral(" %1=%2").arg(e.name, e.value.toString());
            }
        }
        result.append(line);
    }
    return result;
}

class DemoForms : public ::testing::TestWithParam<std::string> {
protected:
    MemoryRegistry registry;
    ScopedService<RegistryBackend> store{registry};
};

TEST_P(DemoForms, LoadsAndComesBackTheSameAfterSaving) {
    const auto form = FormLoader::load(pathOf(GetParam()));
    EXPECT_FALSE(form->Controls().isEmpty());
    QTemporaryDir temp;
    const QString saved = temp.filePath(QStringLiteral("saved.ui"));
    FormLoader::save(*form, saved);
    const auto again = FormLoader::load(saved);
    EXPECT_EQ(state(*again), state(*form));
}

TEST_P(DemoForms, BordersAreLaidOutForTheSizeInTheFile) {
    const auto form = FormLoader::load(pathOf(GetParam()));
    for (QWidget* w : form->Controls()) {
        if (const auto* border = qobject_cast<const brd*>(w)) {
            SCOPED_TRACE(border->objectName().toStdString());
            EXPECT_EQ(border->shpWeiss()->Width(), border->Width() - 15);
            EXPECT_EQ(border->shpBlau()->Height(), border->Height() - 15);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, DemoForms, ::testing::ValuesIn(demoForms()),
                         [](const auto& info) {
                             std::string name = info.param.substr(0, info.param.find('.'));
                             std::erase_if(name, [](char c) {
                                 return !std::isalnum(static_cast<unsigned char>(c));
                             });
                             return name;
                         });

}  // namespace
}  // namespace vorelle
