#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <stdexcept>

#include "foundation/LateBinding.h"

namespace vorelle {
namespace {

// Members are found once per class and name; the same name on another class, or with
// another number of arguments, is a member of its own.
TEST(LateBinding, TheSameNameOnTwoClassesReachesEachClasssOwnMember) {
    QLabel label;
    QLineEdit edit;
    for (int round = 0; round < 2; ++round) {
        const QString text = QStringLiteral("round %1").arg(round);
        bool ok = false;
        LateCall(&label, "setText", {text}, &ok);
        EXPECT_TRUE(ok);
        LateCall(&edit, "setText", {text + u'!'}, &ok);
        EXPECT_TRUE(ok);
        EXPECT_EQ(label.text(), text);
        EXPECT_EQ(edit.text(), text + u'!');
        EXPECT_EQ(LateGet(&label, "text").toString(), text);
    }
}

TEST(LateBinding, EachNumberOfArgumentsFindsItsOwnOverload) {
    QTimer timer;
    bool ok = false;
    LateCall(&timer, "start", {250}, &ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(timer.interval(), 250);
    timer.stop();
    LateCall(&timer, "start", {}, &ok);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(timer.isActive());
    LateCall(&timer, "start", {1, 2, 3}, &ok);  // no overload with three
    EXPECT_FALSE(ok);
}

TEST(LateBinding, AMissingMemberStaysMissingAndAPropertyIsWrittenByName) {
    QLineEdit edit;
    for (int round = 0; round < 2; ++round) {
        bool ok = true;
        LateCall(&edit, "NoSuchMember", {1, 2}, &ok);
        EXPECT_FALSE(ok);
        EXPECT_FALSE(LateHas(&edit, "NoSuchMember"));
        EXPECT_TRUE(LateHas(&edit, "maxLength"));
        EXPECT_TRUE(LateHas(&edit, "selectAll"));
        LateCall(&edit, "maxLength", {10 + round}, &ok);  // one argument writes
        EXPECT_TRUE(ok);
        EXPECT_EQ(edit.maxLength(), 10 + round);
        EXPECT_FALSE(LateSet(&edit, "NoSuchMember", 3));
    }
}

class Answering : public QObject {
    Q_OBJECT
public:
    Q_INVOKABLE QVariant Value() const { return QStringLiteral("given"); }
    Q_INVOKABLE void Fails() { throw std::runtime_error("member failed"); }
};

TEST(LateBinding, AVariantResultComesAsItIsAndAThrowingMemberIsTrapped) {
    Answering object;
    bool ok = false;
    EXPECT_EQ(LateCall(&object, "Value", {}, &ok).toString(), "given");
    EXPECT_TRUE(ok);
    EXPECT_FALSE(LateCall(&object, "Fails", {}, &ok).isValid());
    EXPECT_FALSE(ok);
}

}  // namespace
}  // namespace vorelle

#include "LateBindingTest.moc"
