// SPDX-License-Identifier: Apache-2.0
// What each class with a meta-object shows of itself, entry by entry. A new class adds its rows.
#include "device/BatteryInfoPrivate.h"
#include "device/LedPrivate.h"
#include "platform/NotificationPrivate.h"
#include "platform/PromptChoicePrivate.h"
#include "pps/PpsAccessorPrivate.h"
#include "system/NetworkStatusManagerImpl.h"

#include <tamo/Application.h>
#include <tamo/Navigator.h>
#include <tamo/PpsAccessor.h>
#include <tamo/PpsObject.h>
#include <tamo/device/BatteryInfo.h>
#include <tamo/device/Display.h>
#include <tamo/device/DisplayManager.h>
#include <tamo/system/NetworkStatus.h>

#include <QMetaEnum>
#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>
#include <QUrl>
#include <QVariant>

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using tamo::Application;
using tamo::Navigator;
using tamo::PpsAccessor;
using tamo::PpsAccessorPrivate;
using tamo::PpsObject;
using tamo::device::BatteryInfo;
using tamo::device::BatteryInfoPrivate;
using tamo::device::Display;
using tamo::device::DisplayManager;
using tamo::device::Led;
using tamo::device::LedColor;
using tamo::device::LedPrivate;
using tamo::device::detail::PpsHelper;
using tamo::platform::Notification;
using tamo::platform::NotificationPrivate;
using tamo::platform::NotificationTextMode;
using tamo::platform::PromptChoice;
using tamo::platform::PromptChoicePrivate;
using tamo::system::NetworkStatus;
using tamo::system::NetworkStatusManager;
using tamo::system::NetworkStatusManagerImpl;
using tamomock::LedPpsChannel;
using tamomock::NotificationPpsChannel;

// Types are compared as Qt knows them, since Qt 5 and Qt 6 spell some of them differently.
template<typename T>
const int type = qMetaTypeId<T>();
const int noValue = QMetaType::Void;
// Qt 5 knows a list property by its name alone, which is looked at below.
const int listType = -1;

struct Parameter
{
    int type;
    std::string name;
};

struct Method
{
    QMetaMethod::MethodType kind;
    QMetaMethod::Access access;
    int returnType;
    std::string name;
    std::vector<Parameter> parameters;
};

struct Property
{
    std::string name;
    int type;
    bool writable;
    bool resettable;
    bool constant;
    std::string notifySignal;
};

struct Enumeration
{
    std::string name;
    bool isFlag;
    std::vector<std::pair<std::string, int>> keys;
};

struct Class
{
    const QMetaObject* metaObject;
    std::string name;
    const QMetaObject* superClass;
    std::vector<Method> methods;
    std::vector<Property> properties;
    std::vector<Enumeration> enumerations;
    std::vector<std::pair<std::string, std::string>> classInfo = {};
};

Method signal(const std::string& name, std::vector<Parameter> parameters = {})
{
    return {QMetaMethod::Signal, QMetaMethod::Public, noValue, name, std::move(parameters)};
}

Method slot(QMetaMethod::Access access, int returnType, const std::string& name,
            std::vector<Parameter> parameters = {})
{
    return {QMetaMethod::Slot, access, returnType, name, std::move(parameters)};
}

Method invokable(const std::string& name, std::vector<Parameter> parameters = {})
{
    return {QMetaMethod::Method, QMetaMethod::Public, noValue, name, std::move(parameters)};
}

/** A property with a setter, a resetter, and the signal that such a property has. */
Property variable(const std::string& name, int type)
{
    return {name, type, true, true, false, name + "Changed"};
}

const std::vector<Class>& classes()
{
    static const std::vector<Class> table = {
        {&Application::staticMetaObject,
         "tamo::Application",
         &QCoreApplication::staticMetaObject,
         {signal("thumbnail", {{type<QString>, "windowGroupId"}}),
          signal("fullscreen", {{type<QString>, "windowGroupId"}}),
          signal("invisible", {{type<QString>, "windowGroupId"}}), signal("swipeDown"),
          signal("lowMemory"), signal("asleep", {{type<QString>, "windowGroupId"}}),
          signal("awake", {{type<QString>, "windowGroupId"}}),
          signal("urlHandlerInvoked", {{type<QUrl>, "url"}})},
         {},
         {}},
        {&Navigator::staticMetaObject,
         "tamo::Navigator",
         &QObject::staticMetaObject,
         {signal("thumbnail", {{type<QString>, "windowGroupId"}}),
          signal("fullscreen", {{type<QString>, "windowGroupId"}}),
          signal("invisible", {{type<QString>, "windowGroupId"}}), signal("swipeDown"),
          signal("lowMemory"), signal("asleep", {{type<QString>, "windowGroupId"}}),
          signal("awake", {{type<QString>, "windowGroupId"}}), signal("exit"),
          signal("orientationHandlerChanged"), signal("urlHandlerInvoked", {{type<QUrl>, "url"}})},
         {},
         {}},
        {&PpsObject::staticMetaObject,
         "tamo::PpsObject",
         &QObject::staticMetaObject,
         {signal("readyRead"),
          slot(QMetaMethod::Public, noValue, "setReadyReadEnabled", {{type<bool>, "enable"}})},
         {},
         {}},
        {&PpsAccessor::staticMetaObject,
         "tamo::PpsAccessor",
         &QObject::staticMetaObject,
         {signal("received", {{type<QVariantMap>, "ppsData"}}),
          signal("unparsableDataReceived", {{type<QByteArray>, "rawData"}}),
          slot(QMetaMethod::Public, type<bool>, "send", {{type<QVariantMap>, "ppsData"}})},
         {},
         {}},
        {&PpsAccessorPrivate::staticMetaObject,
         "tamo::PpsAccessorPrivate",
         &QObject::staticMetaObject,
         {slot(QMetaMethod::Private, noValue, "readyRead")},
         {},
         {}},
        {&BatteryInfo::staticMetaObject,
         "tamo::device::BatteryInfo",
         &QObject::staticMetaObject,
         {signal("levelChanged",
                 {{type<int>, "level"}, {type<BatteryInfo::ChargingState>, "chargingState"}})},
         {{"level", type<int>, false, false, false, "levelChanged"},
          {"chargingState", type<BatteryInfo::ChargingState>, false, false, false, "levelChanged"}},
         {{"ChargingState",
           false,
           {{"UnknownChargingState", 0},
            {"NotCharging", 1},
            {"Charging", 2},
            {"Discharging", 3},
            {"Full", 4}}}}},
        {&BatteryInfoPrivate::staticMetaObject,
         "tamo::device::BatteryInfoPrivate",
         &QObject::staticMetaObject,
         {slot(QMetaMethod::Public, noValue, "onPpsBattery", {{type<QVariantMap>, "pps"}}),
          slot(QMetaMethod::Public, noValue, "onPpsCharger", {{type<QVariantMap>, "pps"}})},
         {},
         {}},
        {&PpsHelper::staticMetaObject,
         "tamo::device::detail::PpsHelper",
         &QObject::staticMetaObject,
         {signal("received", {{type<QVariantMap>, "ppsData"}})},
         {},
         {}},
        {&Display::staticMetaObject,
         "tamo::device::Display",
         &QObject::staticMetaObject,
         {signal("attachedChanged", {{type<bool>, "attached"}})},
         {{"displayId", type<int>, false, false, false, ""},
          {"displayName", type<QString>, false, false, false, ""},
          {"pixelSize", type<QSize>, false, false, false, ""},
          {"physicalSize", type<QSizeF>, false, false, false, ""},
          {"aspectType", type<Display::AspectType>, false, false, false, ""},
          {"displayType", type<Display::DisplayType>, false, false, false, ""},
          {"attached", type<bool>, false, false, false, "attachedChanged"},
          {"detachable", type<bool>, false, false, false, ""}},
         {{"AspectType", false, {{"Landscape", 0}, {"Portrait", 1}, {"Square", 2}}},
          {"DisplayType", false, {{"DisplayTypeInternal", 0}, {"DisplayTypeExternal", 1}}}}},
        {&DisplayManager::staticMetaObject,
         "tamo::device::DisplayManager",
         &QObject::staticMetaObject,
         {signal("displayAttached", {{type<int>, "displayId"}}),
          signal("displayDetached", {{type<int>, "displayId"}})},
         {},
         {}},
        {&NetworkStatus::staticMetaObject,
         "tamo::system::NetworkStatus",
         &QObject::staticMetaObject,
         {signal("networkConnected"), signal("networkDisconnected")},
         {},
         {}},
        {&NetworkStatusManager::staticMetaObject,
         "tamo::system::NetworkStatusManager",
         &QObject::staticMetaObject,
         {signal("externalNetworkConnected"), signal("externalNetworkDisconnected")},
         {},
         {}},
        {&NetworkStatusManagerImpl::staticMetaObject,
         "tamo::system::NetworkStatusManagerImpl",
         &NetworkStatusManager::staticMetaObject,
         {slot(QMetaMethod::Private, noValue, "networkIsConnected", {{type<int>, "networkID"}}),
          slot(QMetaMethod::Private, noValue, "networkIsDisconnected", {{type<int>, "networkID"}})},
         {},
         {}},
        {&LedColor::staticMetaObject,
         "tamo::device::LedColor",
         &QObject::staticMetaObject,
         {},
         {},
         {{"Type",
           false,
           {{"None", 0},
            {"Red", 0xFF0000},
            {"Green", 0x00FF00},
            {"Blue", 0x0000FF},
            {"Yellow", 0xFFFF00},
            {"Cyan", 0x00FFFF},
            {"Magenta", 0xFF00FF},
            {"White", 0xFFFFFF}}}}},
        {&Led::staticMetaObject,
         "tamo::device::Led",
         &QObject::staticMetaObject,
         {signal("colorChanged", {{type<LedColor::Type>, "value"}}),
          signal("remainingFlashCountChanged", {{type<int>, "value"}}),
          signal("activeChanged", {{type<bool>, "value"}}), invokable("flash"),
          invokable("flash", {{type<int>, "count"}}), invokable("cancel")},
         {variable("color", type<LedColor::Type>),
          {"remainingFlashCount", type<int>, false, false, false, "remainingFlashCountChanged"},
          {"active", type<bool>, false, false, false, "activeChanged"}},
         {}},
        {&LedPrivate::staticMetaObject,
         "tamo::device::LedPrivate",
         &QObject::staticMetaObject,
         {signal("send", {{type<QVariantMap>, "message"}}),
          slot(QMetaMethod::Public, noValue, "onReceive", {{type<QVariantMap>, "map"}})},
         {},
         {}},
        {&NotificationTextMode::staticMetaObject,
         "tamo::platform::NotificationTextMode",
         &QObject::staticMetaObject,
         {},
         {},
         {{"Type", false, {{"PlainText", 0}, {"RichText", 1}}}}},
        {&Notification::staticMetaObject,
         "tamo::platform::Notification",
         &QObject::staticMetaObject,
         {signal("acknowledged", {{type<QString>, "metadata"}}),
          signal("invoked", {{type<QString>, "metadata"}}),
          signal("expired", {{type<QString>, "metadata"}}),
          signal("bodyChanged", {{type<QString>, "value"}}),
          signal("ledColorChanged", {{type<LedColor::Type>, "value"}}),
          signal("textModeChanged", {{type<NotificationTextMode::Type>, "value"}}),
          signal("timeChanged", {{type<QDateTime>, "value"}}),
          signal("durationChanged", {{type<int>, "value"}}),
          signal("iconChanged", {{type<QUrl>, "value"}}),
          signal("soundChanged", {{type<QString>, "value"}}),
          signal("metadataChanged", {{type<QString>, "value"}}), invokable("notify"),
          invokable("cancel")},
         {variable("body", type<QString>),
          variable("ledColor", type<LedColor::Type>),
          variable("textMode", type<NotificationTextMode::Type>),
          variable("time", type<QDateTime>),
          variable("duration", type<int>),
          variable("icon", type<QUrl>),
          variable("sound", type<QString>),
          variable("metadata", type<QString>),
          {"choices", listType, false, false, false, ""}},
         {},
         {{"DefaultProperty", "choices"}}},
        {&NotificationPrivate::staticMetaObject,
         "tamo::platform::NotificationPrivate",
         &QObject::staticMetaObject,
         {signal("selectedBroadcast", {{type<QString>, "id"},
                                       {type<QString>, "notificationMetadata"},
                                       {type<QString>, "label"},
                                       {type<QString>, "metadata"}}),
          signal("send", {{type<QVariantMap>, "message"}}),
          slot(QMetaMethod::Public, noValue, "onChildDestroyed", {{type<QObject*>, "child"}}),
          slot(QMetaMethod::Public, noValue, "onResponse", {{type<QVariantMap>, "response"}})},
         {},
         {}},
        {&PromptChoice::staticMetaObject,
         "tamo::platform::PromptChoice",
         &QObject::staticMetaObject,
         {signal("labelChanged", {{type<QString>, "value"}}),
          signal("metadataChanged", {{type<QString>, "value"}}),
          signal("selected", {{type<QString>, "notificationMetadata"},
                              {type<QString>, "choiceLabel"},
                              {type<QString>, "choiceMetadata"}})},
         {variable("label", type<QString>), variable("metadata", type<QString>)},
         {}},
        {&PromptChoicePrivate::staticMetaObject,
         "tamo::platform::PromptChoicePrivate",
         &QObject::staticMetaObject,
         {slot(QMetaMethod::Public, noValue, "onSelectedBroadcast",
               {{type<QString>, "id"},
                {type<QString>, "notificationMetadata"},
                {type<QString>, "label"},
                {type<QString>, "metadata"}})},
         {},
         {}},
        {&LedPpsChannel::staticMetaObject,
         "tamomock::LedPpsChannel",
         &QObject::staticMetaObject,
         {signal("sendPassthrough", {{type<QVariantMap>, "map"}}),
          signal("receivePassthrough", {{type<QVariantMap>, "map"}})},
         {},
         {}},
        {&NotificationPpsChannel::staticMetaObject,
         "tamomock::NotificationPpsChannel",
         &QObject::staticMetaObject,
         {signal("sendPassthrough", {{type<QVariantMap>, "map"}}),
          signal("receivePassthrough", {{type<QVariantMap>, "map"}})},
         {},
         {}},
    };
    return table;
}

class MetaObject : public testing::TestWithParam<Class>
{
protected:
    const Class& expected = GetParam();
    const QMetaObject& actual = *GetParam().metaObject;
};

TEST_P(MetaObject, HasItsNameAndSuperclass)
{
    EXPECT_EQ(actual.className(), expected.name);
    EXPECT_EQ(actual.superClass(), expected.superClass);
}

TEST_P(MetaObject, HasItsMethodsInOrder)
{
    ASSERT_EQ(actual.methodCount() - actual.methodOffset(),
              static_cast<int>(expected.methods.size()));
    for (std::size_t i = 0; i < expected.methods.size(); ++i) {
        const Method& method = expected.methods[i];
        const QMetaMethod found = actual.method(actual.methodOffset() + static_cast<int>(i));
        SCOPED_TRACE(found.methodSignature().toStdString());
        EXPECT_EQ(found.name().toStdString(), method.name);
        EXPECT_EQ(found.methodType(), method.kind);
        EXPECT_EQ(found.access(), method.access);
        EXPECT_EQ(found.returnType(), method.returnType);
        ASSERT_EQ(found.parameterCount(), static_cast<int>(method.parameters.size()));
        for (int p = 0; p < found.parameterCount(); ++p) {
            const Parameter& parameter = method.parameters[static_cast<std::size_t>(p)];
            EXPECT_EQ(found.parameterType(p), parameter.type);
            EXPECT_EQ(found.parameterNames().at(p).toStdString(), parameter.name);
        }
    }
}

TEST_P(MetaObject, HasItsPropertiesInOrder)
{
    ASSERT_EQ(actual.propertyCount() - actual.propertyOffset(),
              static_cast<int>(expected.properties.size()));
    for (std::size_t i = 0; i < expected.properties.size(); ++i) {
        const Property& property = expected.properties[i];
        const QMetaProperty found = actual.property(actual.propertyOffset() + static_cast<int>(i));
        SCOPED_TRACE(property.name);
        EXPECT_EQ(found.name(), property.name);
        EXPECT_TRUE(property.type == listType || property.type == found.userType());
        EXPECT_TRUE(found.isReadable());
        EXPECT_EQ(found.isWritable(), property.writable);
        EXPECT_EQ(found.isResettable(), property.resettable);
        EXPECT_EQ(found.isConstant(), property.constant);
        EXPECT_EQ(found.notifySignal().name().toStdString(), property.notifySignal);
    }
}

TEST_P(MetaObject, HasItsEnumerationsInOrder)
{
    ASSERT_EQ(actual.enumeratorCount() - actual.enumeratorOffset(),
              static_cast<int>(expected.enumerations.size()));
    for (std::size_t i = 0; i < expected.enumerations.size(); ++i) {
        const Enumeration& enumeration = expected.enumerations[i];
        const QMetaEnum found = actual.enumerator(actual.enumeratorOffset() + static_cast<int>(i));
        EXPECT_EQ(found.name(), enumeration.name);
        EXPECT_EQ(found.isFlag(), enumeration.isFlag);
        std::vector<std::pair<std::string, int>> keys;
        for (int k = 0; k < found.keyCount(); ++k)
            keys.emplace_back(found.key(k), found.value(k));
        EXPECT_EQ(keys, enumeration.keys);
    }
}

TEST_P(MetaObject, HasItsClassInfo)
{
    std::vector<std::pair<std::string, std::string>> classInfo;
    for (int i = actual.classInfoOffset(); i < actual.classInfoCount(); ++i)
        classInfo.emplace_back(actual.classInfo(i).name(), actual.classInfo(i).value());
    EXPECT_EQ(classInfo, expected.classInfo);
}

std::string testName(const testing::TestParamInfo<Class>& info)
{
    const std::string& name = info.param.name;
    return name.substr(name.rfind(':') + 1);
}

INSTANTIATE_TEST_SUITE_P(Table, MetaObject, testing::ValuesIn(classes()), testName);

// What is written is what connections by name, and other languages, go by.
TEST(MetaObjectSpelling, NamesEnumerationsInFull)
{
    const auto hasMethod = [](const QMetaObject& metaObject, const char* signature) {
        return metaObject.indexOfMethod(signature) != -1;
    };
    EXPECT_TRUE(hasMethod(Led::staticMetaObject, "colorChanged(tamo::device::LedColor::Type)"));
    EXPECT_TRUE(
        hasMethod(Notification::staticMetaObject, "ledColorChanged(tamo::device::LedColor::Type)"));
    EXPECT_TRUE(hasMethod(Notification::staticMetaObject,
                          "textModeChanged(tamo::platform::NotificationTextMode::Type)"));

    const auto typeName = [](const QMetaObject& metaObject, const char* property) {
        return std::string(metaObject.property(metaObject.indexOfProperty(property)).typeName());
    };
    EXPECT_EQ(typeName(Led::staticMetaObject, "color"), "tamo::device::LedColor::Type");
    EXPECT_EQ(typeName(Notification::staticMetaObject, "ledColor"), "tamo::device::LedColor::Type");
    EXPECT_EQ(typeName(Notification::staticMetaObject, "textMode"),
              "tamo::platform::NotificationTextMode::Type");
    EXPECT_EQ(typeName(Notification::staticMetaObject, "choices"),
              "QQmlListProperty<tamo::platform::PromptChoice>");
}

} // namespace
