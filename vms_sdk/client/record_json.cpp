// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/client/record_json.h"

#include "vms_sdk/client/meta_types.h"
#include "vms_sdk/client/record_types.h"

#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QMetaProperty>
#include <QStringList>
#include <QTime>

#include <cstring>

namespace vms_sdk::record_json {
namespace {

// A QVariant holding a QList<T> can be read element by element through Qt's sequential
// iterable, but nothing in Qt builds one from elements without knowing T. So every list and
// map a record can hold is registered here once, with the two functions that know T.
struct ContainerOps
{
    ContainerInfo info;
    // Elements, or map entries as (key, value) pairs with the key in a QVariant of int.
    QVariantList (*split)(const QVariant&) = nullptr;
    QVariant (*join)(const QVariantList&) = nullptr;
};

template<class T>
void addList(QHash<int, ContainerOps>& ops)
{
    ContainerOps list;
    list.info.elementType = qMetaTypeId<T>();
    list.split = [](const QVariant& value) {
        QVariantList elements;
        for (const T& element : value.value<QList<T>>())
            elements.append(QVariant::fromValue(element));
        return elements;
    };
    list.join = [](const QVariantList& elements) {
        QList<T> value;
        value.reserve(elements.size());
        for (const QVariant& element : elements)
            value.append(element.value<T>());
        return QVariant::fromValue(value);
    };
    ops.insert(qMetaTypeId<QList<T>>(), list);
}

template<class T>
void addIntMap(QHash<int, ContainerOps>& ops)
{
    ContainerOps map;
    map.info.elementType = qMetaTypeId<T>();
    map.info.intKeyed = true;
    map.split = [](const QVariant& value) {
        QVariantList entries;
        const auto typed = value.value<QMap<int, T>>();
        for (auto it = typed.cbegin(); it != typed.cend(); ++it) {
            entries.append(it.key());
            entries.append(QVariant::fromValue(it.value()));
        }
        return entries;
    };
    map.join = [](const QVariantList& entries) {
        QMap<int, T> value;
        for (qsizetype i = 0; i + 1 < entries.size(); i += 2)
            value.insert(entries.at(i).toInt(), entries.at(i + 1).value<T>());
        return QVariant::fromValue(value);
    };
    ops.insert(qMetaTypeId<QMap<int, T>>(), map);
}

const QHash<int, ContainerOps>& containers()
{
    static const QHash<int, ContainerOps> ops = [] {
        registerRecordMetaTypes();
        QHash<int, ContainerOps> all;
#define VMS_ADD_RECORD_LIST(Name) addList<Name>(all);
        VMS_RECORD_TYPES(VMS_ADD_RECORD_LIST)
#undef VMS_ADD_RECORD_LIST
        addList<int>(all);
        addList<QByteArray>(all);
        addList<QDate>(all);
        addList<EventList>(all);
        addIntMap<AiAbilityInfo>(all);
        addIntMap<StreamSettingInfo>(all);
        addIntMap<EventList>(all);
        return all;
    }();
    return ops;
}

QJsonValue containerToJson(const ContainerOps& ops, const QVariant& value)
{
    const QVariantList parts = ops.split(value);
    if (!ops.info.intKeyed) {
        QJsonArray array;
        for (const QVariant& element : parts)
            array.append(variantToJson(element));
        return array;
    }
    QJsonObject object;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        object.insert(QString::number(parts.at(i).toInt()), variantToJson(parts.at(i + 1)));
    return object;
}

bool containerFromJson(const ContainerOps& ops, const QJsonValue& json, QVariant* value)
{
    bool ok = true;
    QVariantList parts;
    if (!ops.info.intKeyed) {
        if (!json.isArray())
            return false;
        for (const QJsonValue& element : json.toArray()) {
            QVariant part;
            ok = variantFromJson(element, ops.info.elementType, &part) && ok;
            parts.append(part);
        }
    } else {
        if (!json.isObject())
            return false;
        const QJsonObject object = json.toObject();
        for (auto it = object.begin(); it != object.end(); ++it) {
            bool isNumber = false;
            const int key = it.key().toInt(&isNumber);
            QVariant part;
            ok = isNumber && variantFromJson(it.value(), ops.info.elementType, &part) && ok;
            parts.append(key);
            parts.append(part);
        }
    }
    *value = ops.join(parts);
    return ok;
}

// Enumerations travel as their number. Every public one is 32 bits wide, which is checked
// rather than assumed.
QJsonValue enumToJson(const QVariant& value)
{
    qint32 number = 0;
    if (QMetaType::sizeOf(value.userType()) != sizeof(number))
        return QJsonValue(QJsonValue::Undefined);
    std::memcpy(&number, value.constData(), sizeof(number));
    return number;
}

bool enumFromJson(const QJsonValue& json, int typeId, QVariant* value)
{
    if (!json.isDouble() || QMetaType::sizeOf(typeId) != sizeof(qint32))
        return false;
    const qint32 number = json.toInt();
    *value = QVariant(typeId, &number);
    return true;
}

} // namespace

ContainerInfo containerInfo(int typeId)
{
    return containers().value(typeId).info;
}

QJsonValue variantToJson(const QVariant& value)
{
    const int type = value.userType();
    switch (type) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return value.toLongLong();
    case QMetaType::ULongLong:
        return double(value.toULongLong());
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toDouble();
    case QMetaType::QString:
        return value.toString();
    case QMetaType::QByteArray:
        return QString::fromLatin1(value.toByteArray().toBase64());
    case QMetaType::QStringList:
        return QJsonArray::fromStringList(value.toStringList());
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QTime:
        return value.toTime().toString(Qt::ISODateWithMs);
    case QMetaType::QDateTime:
        return value.toDateTime().toString(Qt::ISODateWithMs);
    default:
        break;
    }
    const QMetaType::TypeFlags flags = QMetaType::typeFlags(type);
    if (flags & QMetaType::IsEnumeration)
        return enumToJson(value);
    if (flags & QMetaType::IsGadget)
        return gadgetToJson(*QMetaType::metaObjectForType(type), value.constData());
    const auto ops = containers().constFind(type);
    if (ops != containers().cend())
        return containerToJson(*ops, value);
    return QJsonValue(QJsonValue::Undefined);
}

bool variantFromJson(const QJsonValue& json, int typeId, QVariant* value)
{
    switch (typeId) {
    case QMetaType::Bool:
        *value = json.toBool();
        return json.isBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Double:
    case QMetaType::Float:
        *value = json.toDouble();
        return json.isDouble() && value->convert(typeId);
    case QMetaType::QString:
        *value = json.toString();
        return json.isString();
    case QMetaType::QByteArray:
        *value = QByteArray::fromBase64(json.toString().toLatin1());
        return json.isString();
    case QMetaType::QStringList: {
        QStringList list;
        bool ok = json.isArray();
        for (const QJsonValue& element : json.toArray()) {
            ok = ok && element.isString();
            list.append(element.toString());
        }
        *value = list;
        return ok;
    }
    case QMetaType::QDate: {
        const QString text = json.toString();
        *value = QDate::fromString(text, Qt::ISODate);
        return json.isString() && (text.isEmpty() || value->toDate().isValid());
    }
    case QMetaType::QTime: {
        const QString text = json.toString();
        *value = QTime::fromString(text, Qt::ISODateWithMs);
        return json.isString() && (text.isEmpty() || value->toTime().isValid());
    }
    case QMetaType::QDateTime: {
        const QString text = json.toString();
        *value = QDateTime::fromString(text, Qt::ISODateWithMs);
        return json.isString() && (text.isEmpty() || value->toDateTime().isValid());
    }
    default:
        break;
    }
    const QMetaType::TypeFlags flags = QMetaType::typeFlags(typeId);
    if (flags & QMetaType::IsEnumeration)
        return enumFromJson(json, typeId, value);
    if (flags & QMetaType::IsGadget) {
        *value = QVariant(typeId, nullptr);
        return json.isObject() &&
               gadgetFromJson(json.toObject(), *QMetaType::metaObjectForType(typeId),
                              value->data());
    }
    const auto ops = containers().constFind(typeId);
    if (ops != containers().cend())
        return containerFromJson(*ops, json, value);
    return false;
}

QJsonObject gadgetToJson(const QMetaObject& metaObject, const void* gadget)
{
    containers(); // registers the property types too
    QJsonObject json;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        json.insert(QString::fromLatin1(property.name()),
                    variantToJson(property.readOnGadget(gadget)));
    }
    return json;
}

bool gadgetFromJson(const QJsonObject& json, const QMetaObject& metaObject, void* gadget)
{
    containers(); // registers the property types too
    bool ok = true;
    for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
        const QMetaProperty property = metaObject.property(i);
        const auto entry = json.constFind(QString::fromLatin1(property.name()));
        if (entry == json.constEnd())
            continue;
        QVariant value;
        if (variantFromJson(*entry, property.userType(), &value))
            property.writeOnGadget(gadget, value);
        else
            ok = false;
    }
    return ok;
}

} // namespace vms_sdk::record_json
