#include "host/form/FormLoader.h"

#include <QBuffer>
#include <QHash>
#include <QLayout>
#include <QMetaProperty>
#include <QPointer>
#include <QSaveFile>
#include <QSet>
#include <QUiLoader>

#include "host/form/Form.h"
#include "host/form/UiDocument.h"
#include "host/form/UiSource.h"
#include "host/form/UiValue.h"
#include "host/frame/ControlBase.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/PropertyBag.h"

namespace vorelle {

namespace {

const QString kWidget = QStringLiteral("widget");
const QString kProperty = QStringLiteral("property");
const QString kLayout = QStringLiteral("layout");
const QString kItem = QStringLiteral("item");
const QString kName = QStringLiteral("name");
const QString kClass = QStringLiteral("class");
const QString kGeometry = QStringLiteral("geometry");

QString bareName(QString name) {
    if (name.startsWith(u"vorelle::")) {
        name = name.mid(9);
    }
    return name;
}

// The registered control classes by class and type name, taken from the registry once
// for a whole load or save.
class ControlClasses {
public:
    ControlClasses() {
        // In registration order, a class name before its type name: the first class
        // answering to a name wins.
        for (const QMetaObject* meta : ControlRegistry::classes()) {
            for (const QString& key : {bareName(QString::fromLatin1(meta->className())),
                                       ControlBase::classInfo(meta, "TypeName")}) {
                if (!byName_.contains(key)) {
                    byName_.insert(key, meta);
                }
            }
        }
    }

    // The registered control class for a class or type name, or nullptr.
    const QMetaObject* find(const QString& name) const { return byName_.value(bareName(name)); }

private:
    QHash<QString, const QMetaObject*> byName_;
};

QMetaProperty findProperty(const QMetaObject* meta, const QString& name) {
    if (meta) {
        for (int i = 0; i < meta->propertyCount(); ++i) {
            const QMetaProperty p = meta->property(i);
            if (name.compare(QLatin1String(p.name()), Qt::CaseInsensitive) == 0) {
                return p;
            }
        }
    }
    return QMetaProperty();
}

[[noreturn]] void fail(const QString& file, const UiNode& at, const QString& what,
                       const QString& property = QString()) {
    throw UiFileError(QStringLiteral("%1:%2: %3").arg(file).arg(at.line).arg(what), file, at.line,
                      property);
}

// Value kinds the loader checks on plain widgets; others (icons, palettes, size
// policies, ...) go to Qt unchecked.
bool checkedKind(const UiNode& property) {
    static const QSet<QString> kinds{
        QStringLiteral("string"), QStringLiteral("cstring"),  QStringLiteral("number"),
        QStringLiteral("uInt"),   QStringLiteral("longLong"), QStringLiteral("uLongLong"),
        QStringLiteral("bool"),   QStringLiteral("double"),   QStringLiteral("float"),
        QStringLiteral("color"),  QStringLiteral("font"),     QStringLiteral("rect"),
        QStringLiteral("size"),   QStringLiteral("point"),    QStringLiteral("stringlist")};
    return property.children.size() == 1 && kinds.contains(property.children.front().tag);
}

// A control of the file with what it is started from.
struct ControlPlan {
    const UiNode* node = nullptr;
    QString className;
    QString name;
    const QMetaObject* meta = nullptr;
    PropertyBag bag;
    std::optional<QRect> geometry;
    QPointer<ControlBase> widget;
};

// Checks the structure of a document and gathers its controls.
class Checker {
public:
    Checker(const UiDocument& doc, const ControlClasses& classes, QList<ControlPlan>& controls)
        : file_(doc.file), classes_(classes), controls_(controls), qtClasses_(knownQtClasses()) {}

    // The widget classes Qt's loader builds, found once: asking makes a loader.
    static const QStringList& knownQtClasses() {
        static const QStringList classes = [] {
            QStringList known = QUiLoader().availableWidgets();
            known.append(QStringLiteral("Line"));
            return known;
        }();
        return classes;
    }

    const UiNode& check(const UiNode& ui) {
        if (ui.tag != u"ui") {
            fail(file_, ui,
                 QStringLiteral("damaged form file: the document is <%1>, not <ui>").arg(ui.tag));
        }
        static const QSet<QString> known{
            QStringLiteral("author"),         QStringLiteral("comment"),
            QStringLiteral("exportmacro"),    QStringLiteral("class"),
            QStringLiteral("widget"),         QStringLiteral("layoutdefault"),
            QStringLiteral("layoutfunction"), QStringLiteral("pixmapfunction"),
            QStringLiteral("customwidgets"),  QStringLiteral("tabstops"),
            QStringLiteral("images"),         QStringLiteral("includes"),
            QStringLiteral("resources"),      QStringLiteral("connections"),
            QStringLiteral("designerdata"),   QStringLiteral("slots"),
            QStringLiteral("buttongroups")};
        const UiNode* top = nullptr;
        for (const UiNode& c : ui.children) {
            if (!known.contains(c.tag)) {
                fail(file_, c,
                     QStringLiteral("damaged form file: unknown element <%1> in <ui>").arg(c.tag));
            }
            if (c.tag == kWidget) {
                if (top) {
                    fail(file_, c, QStringLiteral("damaged form file: a second top widget"));
                }
                top = &c;
            }
        }
        if (!top) {
            fail(file_, ui, QStringLiteral("damaged form file: <ui> holds no <widget>"));
        }
        const QString rootClass = top->attribute(kClass);
        if (rootClass == u"QMainWindow" || rootClass == u"QDockWidget") {
            fail(file_, *top,
                 QStringLiteral("the top widget is a %1; forms are QWidget or QDialog")
                     .arg(rootClass));
        }
        widget(*top, true);
        return *top;
    }

private:
    void widget(const UiNode& node, bool top) {
        const QString cls = node.attribute(kClass);
        const QString name = node.attribute(kName);
        if (cls.isEmpty()) {
            fail(file_, node, QStringLiteral("damaged form file: <widget> without a class"));
        }
        const QMetaObject* meta = top ? nullptr : classes_.find(cls);
        if (meta) {
            if (name.isEmpty()) {
                fail(file_, node, QStringLiteral("control of class %1 without a name").arg(cls));
            }
            if (names_.contains(name.toLower())) {
                fail(file_, node, QStringLiteral("a second control named '%1'").arg(name));
            }
            names_.insert(name.toLower());
            control(node, cls, name, meta);
        } else if (!top && !qtClasses_.contains(cls)) {
            fail(file_, node,
                 QStringLiteral("unknown widget class '%1' (widget '%2')").arg(cls, name));
        }
        for (const UiNode& c : node.children) {
            if (c.tag == kProperty) {
                property(c, meta != nullptr);
            } else if (c.tag == kWidget) {
                widget(c, false);
            } else if (c.tag == kLayout) {
                layout(c);
            } else if (c.tag != u"attribute" && c.tag != u"addaction" && c.tag != u"action" &&
                       c.tag != u"actiongroup" && c.tag != u"column" && c.tag != u"row" &&
                       c.tag != kItem && c.tag != u"zorder") {
                fail(file_, c,
                     QStringLiteral("damaged form file: unknown element <%1> in widget '%2'")
                         .arg(c.tag, name));
            }
        }
    }

    void layout(const UiNode& node) {
        for (const UiNode& c : node.children) {
            if (c.tag == kProperty) {
                property(c, false);
            } else if (c.tag == kItem) {
                for (const UiNode& inner : c.children) {
                    if (inner.tag == kWidget) {
                        widget(inner, false);
                    } else if (inner.tag == kLayout) {
                        layout(inner);
                    } else if (inner.tag != u"spacer") {
                        fail(file_, inner,
                             QStringLiteral(
                                 "damaged form file: unknown element <%1> in a layout item")
                                 .arg(inner.tag));
                    }
                }
            } else {
                fail(file_, c,
                     QStringLiteral("damaged form file: unknown element <%1> in <layout>")
                         .arg(c.tag));
            }
        }
    }

    void property(const UiNode& node, bool ofControl) {
        if (node.attribute(kName).isEmpty()) {
            fail(file_, node, QStringLiteral("damaged form file: <property> without a name"));
        }
        if (node.children.size() != 1) {
            fail(file_, node,
                 QStringLiteral("property '%1' holds %2 values instead of one")
                     .arg(node.attribute(kName))
                     .arg(node.children.size()),
                 node.attribute(kName));
        }
        if (!ofControl && checkedKind(node)) {
            UiValue::read(node, QMetaProperty(), file_);
        }
    }

    void control(const UiNode& node, const QString& cls, const QString& name,
                 const QMetaObject* meta) {
        ControlPlan plan;
        plan.node = &node;
        plan.className = cls;
        plan.name = name;
        plan.meta = meta;
        plan.bag = PropertyBag(file_);
        for (const UiNode& c : node.children) {
            if (c.tag != kProperty) {
                continue;
            }
            property(c, true);
            const QString prop = c.attribute(kName);
            if (prop == kGeometry) {
                const QVariant rect = UiValue::read(c, QMetaProperty(), file_);
                if (rect.metaType().id() != QMetaType::QRect) {
                    fail(file_, c,
                         QStringLiteral("control '%1': geometry is not a <rect>").arg(name), prop);
                }
                plan.geometry = rect.toRect();
            } else {
                plan.bag.insert(prop, UiValue::read(c, findProperty(meta, prop), file_),
                                c.children.front().line);
            }
        }
        controls_.append(std::move(plan));
    }

    const QString& file_;
    const ControlClasses& classes_;
    QList<ControlPlan>& controls_;
    QStringList qtClasses_;
    QSet<QString> names_;
};

// The document Qt's loader builds from: the controls lose their properties, which
// they read themselves at their start-up.
void stripControls(UiNode& node, const ControlClasses& classes) {
    if (node.tag == kWidget && classes.find(node.attribute(kClass))) {
        std::erase_if(node.children, [](const UiNode& c) { return c.tag == kProperty; });
    }
    for (UiNode& c : node.children) {
        stripControls(c, classes);
    }
}

// A property of the form class itself (BackColor, BorderStyle, KeyPreview, ...): Qt's
// loader knows only QWidget's, so the loader converts these.
struct FormProperty {
    QByteArray name;
    QVariant value;
    const UiNode* node;
};

QList<FormProperty> formProperties(const Form& form, const UiNode& top, const QString& file) {
    QList<FormProperty> result;
    for (const UiNode& c : top.children) {
        if (c.tag != kProperty) {
            continue;
        }
        const QMetaProperty target = findProperty(form.metaObject(), c.attribute(kName));
        if (target.isValid() &&
            target.propertyIndex() >= QWidget::staticMetaObject.propertyCount()) {
            result.append({QByteArray(target.name()), UiValue::read(c, target, file), &c});
        }
    }
    return result;
}

// Qt's loader with the library's controls created by type and the top widget being
// the form itself.
class Builder : public QUiLoader {
public:
    Builder(Form& form, QList<ControlPlan>& controls) : form_(form), controls_(controls) {}

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
        if (!topDone_) {
            topDone_ = true;
            form_.setObjectName(name);
            return &form_;
        }
        QWidget* host = parent;
        if (auto* container = qobject_cast<ControlBase*>(parent);
            container && container->containerArea()) {
            host = container->containerArea();
        }
        for (ControlPlan& plan : controls_) {
            if (!plan.widget && plan.name == name && plan.className == className) {
                ControlBase* control = ControlRegistry::create(className, host);
                if (control) {
                    control->setObjectName(name);
                    plan.widget = control;
                }
                return control;
            }
        }
        return QUiLoader::createWidget(className, host, name);
    }

private:
    Form& form_;
    QList<ControlPlan>& controls_;
    bool topDone_ = false;
};

// What loading may change on the target form, to be put back when it fails.
class Snapshot {
public:
    Snapshot(Form& form, const UiNode& top) : form_(form), userMode_(form.UserMode()) {
        for (QObject* child : form.children()) {
            children_.insert(child);
        }
        geometry_ = form.geometry();
        name_ = form.objectName();
        for (const UiNode& c : top.children) {
            if (c.tag == kProperty) {
                const QByteArray prop = c.attribute(kName).toLatin1();
                properties_.append({prop, form.property(prop.constData())});
            }
        }
    }

    void restore() {
        const QList<QObject*> now = form_.children();
        for (QObject* child : now) {
            if (!children_.contains(child)) {
                delete child;
            }
        }
        for (const auto& [prop, value] : properties_) {
            form_.setProperty(prop.constData(), value);
        }
        form_.setObjectName(name_);
        form_.setGeometry(geometry_);
        form_.setUserMode(userMode_);
    }

private:
    Form& form_;
    QSet<QObject*> children_;
    QList<QPair<QByteArray, QVariant>> properties_;
    QRect geometry_;
    QString name_;
    bool userMode_;
};

// Builds and starts; throws UiFileError.
void build(Form& form, const UiDocument& doc, const FormLoader::Options& options) {
    QList<ControlPlan> controls;
    const ControlClasses classes;
    const UiNode& top = Checker(doc, classes, controls).check(doc.root);

    const QList<FormProperty> ownProperties = formProperties(form, top, doc.file);
    UiDocument stripped = doc;
    stripControls(stripped.root, classes);
    std::erase_if(stripped.root.child(kWidget)->children, [&](const UiNode& c) {
        return c.tag == kProperty &&
               std::any_of(ownProperties.begin(), ownProperties.end(), [&](const FormProperty& p) {
                   return c.attribute(kName).compare(QLatin1String(p.name), Qt::CaseInsensitive) ==
                          0;
               });
    });
    QByteArray xml = stripped.toXml(false);  // for Qt's loader only
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly);

    Snapshot snapshot(form, top);
    form.setUserMode(!options.designMode);
    try {
        Builder builder(form, controls);
        QWidget* built = builder.load(&buffer, nullptr);
        if (built != &form) {
            delete built;
            throw UiFileError(QStringLiteral("%1: the form could not be built: %2")
                                  .arg(doc.file, builder.errorString()),
                              doc.file, 0);
        }
        for (const FormProperty& p : ownProperties) {
            if (!form.setProperty(p.name.constData(), p.value)) {
                fail(doc.file, p.node->children.front(),
                     QStringLiteral("the form's property '%1' does not take '%2'")
                         .arg(QLatin1String(p.name), p.value.toString()),
                     QLatin1String(p.name));
            }
        }
        QHash<ControlBase*, ControlPlan*> byWidget;
        for (ControlPlan& plan : controls) {
            if (!plan.widget) {
                fail(doc.file, *plan.node,
                     QStringLiteral("control '%1' of class %2 was not created")
                         .arg(plan.name, plan.className));
            }
            if (plan.geometry) {
                plan.widget->setGeometry(*plan.geometry);
            }
            byWidget.insert(plan.widget, &plan);
        }
        for (QWidget* w : form.Controls()) {
            auto* control = qobject_cast<ControlBase*>(w);
            ControlPlan* plan = control ? byWidget.value(control) : nullptr;
            if (!plan) {
                continue;
            }
            try {
                control->startFrom(plan->bag);
            } catch (const PropertyError& e) {
                QString detail = e.message();
                const QString where =
                    e.file() + u':' + QString::number(e.line()) + QStringLiteral(": ");
                if (detail.startsWith(where)) {
                    detail = detail.mid(where.size());
                }
                throw UiFileError(QStringLiteral("%1:%2: control '%3' (%4): %5")
                                      .arg(doc.file)
                                      .arg(e.line())
                                      .arg(plan->name, plan->className, detail),
                                  doc.file, e.line(), e.property());
            } catch (const UiFileError&) {
                throw;
            } catch (const std::exception& e) {
                fail(doc.file, *plan->node,
                     QStringLiteral("control '%1' (%2) failed to start: %3")
                         .arg(plan->name, plan->className, QString::fromUtf8(e.what())));
            }
        }
    } catch (...) {
        snapshot.restore();
        throw;
    }
    UiSource::attach(&form, doc);
}

// --- Saving ------------------------------------------------------------------------------------

UiNode rectProperty(const QRect& r, const UiNode* original) {
    UiNode node = UiValue::write(kGeometry, r, QMetaProperty(), nullptr);
    node.attributes =
        original ? original->attributes : QList<QPair<QString, QString>>{{kName, kGeometry}};
    return node;
}

class Writer {
public:
    explicit Writer(const Form& form) : form_(form) {}

    void widget(UiNode& node, bool top, bool inLayout) {
        QWidget* live =
            top ? const_cast<Form*>(&form_) : form_.findChild<QWidget*>(node.attribute(kName));
        if (!live) {
            return;  // gone at run time: written as it was loaded
        }
        auto* control = qobject_cast<ControlBase*>(live);
        if (!top && control && classes_.find(node.attribute(kClass))) {
            controlNode(node, *control, inLayout);
            return;
        }
        UiNode* geometry = node.property(kGeometry);
        if (geometry || !inLayout) {
            QRect r = live->geometry();
            if (top) {
                const QRect was =
                    geometry ? UiValue::read(*geometry, QMetaProperty(), QString()).toRect()
                             : QRect();
                r = QRect(was.topLeft(), live->size());
            }
            if (geometry) {
                *geometry = rectProperty(r, geometry);
            } else {
                node.children.insert(node.children.begin(), rectProperty(r, nullptr));
            }
        }
        children(node);
    }

    QSet<QString> usedClasses;

private:
    void children(UiNode& node) {
        for (UiNode& c : node.children) {
            if (c.tag == kWidget) {
                widget(c, false, node.tag == kItem);
            } else if (c.tag == kLayout || c.tag == kItem) {
                children(c);
            }
        }
    }

    void controlNode(UiNode& node, const ControlBase& control, bool inLayout) {
        usedClasses.insert(node.attribute(kClass));
        std::vector<UiNode> rest;
        const UiNode* oldGeometry = node.property(kGeometry);
        std::vector<UiNode> properties;
        if (oldGeometry || !inLayout) {
            properties.push_back(rectProperty(control.geometry(), oldGeometry));
        }
        const PropertyBag bag = control.save();
        for (const PropertyBag::Entry& e : bag.entries()) {
            properties.push_back(UiValue::write(e.name, e.value,
                                                findProperty(control.metaObject(), e.name),
                                                node.property(e.name)));
        }
        for (UiNode& c : node.children) {
            if (c.tag != kProperty) {
                rest.push_back(std::move(c));
            }
        }
        node.children = std::move(properties);
        for (UiNode& c : rest) {
            node.children.push_back(std::move(c));
        }
        children(node);
    }

    const Form& form_;
    const ControlClasses classes_;
};

// A document for a form that was built in code: its widgets by class, name and geometry.
void describe(UiNode& node, const QWidget& parent) {
    for (QObject* child : parent.children()) {
        auto* w = qobject_cast<QWidget*>(child);
        // A control's own parts (a frame's panel and captions) are made by the control.
        if (!w || w->isWindow() || w->objectName().isEmpty() ||
            w->objectName().startsWith(u"qt_") || ControlBase::isConstituent(w)) {
            continue;
        }
        UiNode& c = node.append(kWidget);
        c.setAttribute(kClass, QString::fromLatin1(w->metaObject()->className()));
        c.setAttribute(kName, w->objectName());
        if (auto* control = qobject_cast<ControlBase*>(w)) {
            if (QWidget* area = control->containerArea()) {
                describe(c, *area);
            }
        } else {
            describe(c, *w);
        }
    }
}

UiDocument describeForm(const Form& form) {
    UiDocument doc;
    doc.root.tag = QStringLiteral("ui");
    doc.root.setAttribute(QStringLiteral("version"), QStringLiteral("4.0"));
    doc.root.append(kClass, form.Name());
    UiNode& top = doc.root.append(kWidget);
    top.setAttribute(kClass, QStringLiteral("QWidget"));
    top.setAttribute(kName, form.Name());
    top.children.push_back(rectProperty(QRect(QPoint(0, 0), form.size()), nullptr));
    UiNode& title = top.append(kProperty);
    title.setAttribute(kName, QStringLiteral("windowTitle"));
    title.append(QStringLiteral("string"), form.Caption());
    describe(top, form);
    doc.root.append(QStringLiteral("resources"));
    doc.root.append(QStringLiteral("connections"));
    return doc;
}

// Declares each control class used in the file, so that Qt Designer opens it.
void declareControls(UiNode& ui, const QSet<QString>& classes) {
    UiNode* list = ui.child(QStringLiteral("customwidgets"));
    if (!list) {
        if (classes.isEmpty()) {
            return;
        }
        auto at = std::find_if(ui.children.begin(), ui.children.end(),
                               [](const UiNode& c) { return c.tag == kWidget; });
        at = at == ui.children.end() ? at : at + 1;
        list = &*ui.children.insert(at, UiNode(QStringLiteral("customwidgets")));
    }
    QSet<QString> declared;
    for (const UiNode& c : list->children) {
        if (const UiNode* cls = c.child(kClass)) {
            declared.insert(cls->text.trimmed());
        }
    }
    QStringList missing;
    for (const QString& cls : classes) {
        if (!declared.contains(cls)) {
            missing.append(cls);
        }
    }
    missing.sort();
    for (const QString& cls : missing) {
        UiNode& c = list->append(QStringLiteral("customwidget"));
        c.append(kClass, cls);
        c.append(QStringLiteral("extends"), QStringLiteral("QWidget"));
        c.append(QStringLiteral("header"), QStringLiteral("vorelle/vorelle.h"));
    }
}

}  // namespace

std::unique_ptr<Form> FormLoader::load(const QString& path, const Options& options) {
    const UiDocument doc = UiDocument::read(path);
    auto form = std::make_unique<Form>();
    build(*form, doc, options);
    if (!options.designMode) {
        form->runLoad();
    }
    return form;
}

void FormLoader::loadInto(Form& form, const QString& path, const Options& options) {
    const UiDocument doc = UiDocument::read(path);
    build(form, doc, options);
    if (!options.designMode) {
        form.runLoad();
    }
}

QByteArray FormLoader::toXml(const Form& form) {
    const UiSource* source = UiSource::of(&form);
    UiDocument doc = source ? source->document() : describeForm(form);
    UiNode* top = doc.root.child(kWidget);
    if (!top) {
        return doc.toXml();
    }
    Writer writer(form);
    writer.widget(*top, true, false);
    declareControls(doc.root, writer.usedClasses);
    return doc.toXml();
}

void FormLoader::save(const Form& form, const QString& path) {
    const QByteArray xml = toXml(form);
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(xml) != xml.size() || !out.commit()) {
        throw UiFileError(
            QStringLiteral("%1: cannot write the form file: %2").arg(path, out.errorString()), path,
            0);
    }
}

}  // namespace vorelle
