// .ui files through the form loader. A file either builds a form or throws one
// UiFileError that says what is wrong, and then nothing of it is left: no widget, no
// change to the form it was loaded into. A built form is written back and that text loads
// again.

#include <QApplication>
#include <QFile>

#include <exception>

#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/form/FormLoader.h"
#include "support/FuzzHost.h"

using namespace vorelle;
using namespace vorelle::fuzz;

namespace {

QString g_file;
QString g_again;

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size()) {
        Fail("form", QStringLiteral("cannot write %1").arg(path));
    }
}

void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Loads the file; false when it threw UiFileError (which must say something), a failure
// for anything else.
bool loads(const std::function<void()>& load, const char* how) {
    try {
        load();
        return true;
    } catch (const UiFileError& e) {
        if (e.message().isEmpty() || e.line() < 0) {
            Fail("form", QStringLiteral("%1: a UiFileError without message or with line %2")
                             .arg(QLatin1String(how))
                             .arg(e.line()));
        }
        return false;
    } catch (const std::exception& e) {
        Fail("form", QStringLiteral("%1 threw something other than UiFileError: %2")
                         .arg(QLatin1String(how), QString::fromUtf8(e.what())));
    } catch (...) {
        Fail("form",
             QStringLiteral("%1 threw something other than an exception").arg(QLatin1String(how)));
    }
}

struct FormState {
    QString name;
    QString title;
    QRect geometry;
    int children;
    bool operator==(const FormState&) const = default;
};

FormState stateOf(const Form& form) {
    return {form.objectName(), form.windowTitle(), form.geometry(),
            static_cast<int>(form.findChildren<QObject*>().size())};
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const QString& folder = StartHost();
    g_file = folder + QStringLiteral("/input.ui");
    g_again = folder + QStringLiteral("/saved.ui");
    static MemoryRegistry store;
    static ScopedService<RegistryBackend> scope(store);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) {
        return 0;
    }
    // The first byte chooses design or run mode (bit 0) and load or loadInto (bit 1); the
    // rest is the file.
    const FormLoader::Options options{.designMode = (data[0] & 1) != 0};
    write(g_file,
          QByteArray(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1)));
    settle();
    const qsizetype widgets = QApplication::allWidgets().size();

    if ((data[0] & 2) == 0) {
        std::unique_ptr<Form> form;
        if (loads([&] { form = FormLoader::load(g_file, options); }, "load")) {
            if (!form) {
                Fail("form", QStringLiteral("load gave no form and no error"));
            }
            write(g_again, FormLoader::toXml(*form));
            form.reset();
            std::unique_ptr<Form> again;
            loads([&] { again = FormLoader::load(g_again, options); }, "load of a saved form");
            again.reset();
            settle();
        } else {
            settle();
            if (QApplication::allWidgets().size() != widgets) {
                Fail("form", QStringLiteral("a failed load left %1 widgets behind")
                                 .arg(QApplication::allWidgets().size() - widgets));
            }
        }
        return 0;
    }

    Form target;
    target.setName(QStringLiteral("frmTarget"));
    target.setWindowTitle(QStringLiteral("Target"));
    target.setGeometry(10, 20, 300, 200);
    const FormState before = stateOf(target);
    if (!loads([&] { FormLoader::loadInto(target, g_file, options); }, "loadInto")) {
        settle();
        if (!(stateOf(target) == before)) {
            Fail("form", QStringLiteral("a failed loadInto changed the form"));
        }
    }
    return 0;
}
