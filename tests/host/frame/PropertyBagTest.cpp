#include <gtest/gtest.h>

#include <QFont>

#include "host/frame/PropertyBag.h"

using vorelle::PropertyBag;
using vorelle::PropertyError;

TEST(PropertyBag, ReadsDefaultsAndElidesThemOnWrite) {
    PropertyBag bag;
    EXPECT_EQ(bag.ReadProperty("ForeColor", 16777215).toInt(), 16777215);
    bag.WriteProperty("ForeColor", 16777215, 16777215);
    EXPECT_TRUE(bag.isEmpty());
    bag.WriteProperty("ForeColor", 255, 16777215);
    EXPECT_EQ(bag.ReadProperty("forecolor", 16777215).toInt(), 255);
    bag.WriteProperty("ForeColor", 16777215, 16777215);
    EXPECT_FALSE(bag.contains("ForeColor"));
}

TEST(PropertyBag, ConvertsToTheTypeOfTheDefault) {
    PropertyBag bag;
    bag.insert("Enabled", QStringLiteral("false"));
    bag.insert("Factor", 2);
    bag.insert("Colour", static_cast<qlonglong>(0x80000005u));
    EXPECT_EQ(bag.ReadProperty("Enabled", true).toBool(), false);
    EXPECT_DOUBLE_EQ(bag.ReadProperty("Factor", 0.0).toDouble(), 2.0);
    EXPECT_EQ(bag.ReadProperty("Colour", 0).toInt(), static_cast<int>(0x80000005u));
}

TEST(PropertyBag, WrongTypeNamesPropertyFileAndLine) {
    PropertyBag bag(QStringLiteral("form.ui"));
    bag.insert("MaxLength", QStringLiteral("lots"), 42);
    try {
        bag.ReadProperty("MaxLength", 255);
        FAIL() << "no error";
    } catch (const PropertyError& e) {
        EXPECT_EQ(e.property(), QStringLiteral("MaxLength"));
        EXPECT_EQ(e.line(), 42);
        EXPECT_TRUE(e.message().contains(QStringLiteral("form.ui:42")));
    }
}
