// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Any public record to JSON and back, through its gadget properties, so that the tests, the
// gateway simulator and tools print and read every record without code of their own per record.
//
// The JSON form: a record is an object with one key per property; a list is an array; a
// QMap<int, T> is an object keyed by the decimal key; bytes are Base64 text; dates, times and
// date-times are ISO 8601 texts (milliseconds kept); an enumeration is its number.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QMetaObject>
#include <QMetaType>
#include <QString>
#include <QVariant>

#include <concepts>

namespace vms_sdk::record_json {

template<class T>
concept Gadget = requires
{
    T::staticMetaObject;
};

QJsonValue variantToJson(const QVariant& value);

// Reads json as a value of the meta-type typeId into *value. Keys a record does not have are
// ignored and fields the JSON leaves out keep their defaults; false when a value does not fit
// its type, or the type is one the helper does not know (the rest is still read).
bool variantFromJson(const QJsonValue& json, int typeId, QVariant* value);

QJsonObject gadgetToJson(const QMetaObject& metaObject, const void* gadget);
bool gadgetFromJson(const QJsonObject& json, const QMetaObject& metaObject, void* gadget);

template<Gadget T>
QJsonObject toJson(const T& record)
{
    return gadgetToJson(T::staticMetaObject, &record);
}

template<Gadget T>
T fromJson(const QJsonObject& json, bool* ok = nullptr)
{
    T record{};
    const bool read = gadgetFromJson(json, T::staticMetaObject, &record);
    if (ok)
        *ok = read;
    return record;
}

// Any registered value: a record, a list or map of records, a scalar.
template<class T>
QJsonValue toJsonValue(const T& value)
{
    return variantToJson(QVariant::fromValue(value));
}

template<class T>
T fromJsonValue(const QJsonValue& json, bool* ok = nullptr)
{
    QVariant value;
    const bool read = variantFromJson(json, qMetaTypeId<T>(), &value);
    if (ok)
        *ok = read;
    return read ? value.value<T>() : T{};
}

// One line for logs, test failures and tools: "vms_sdk::DevNetInfo {"dns":...}".
template<class T>
QString toText(const T& value)
{
    const QJsonValue json = toJsonValue(value);
    const QByteArray text =
        json.isObject()  ? QJsonDocument(json.toObject()).toJson(QJsonDocument::Compact)
        : json.isArray() ? QJsonDocument(json.toArray()).toJson(QJsonDocument::Compact)
                         : QJsonDocument(QJsonArray{json}).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QMetaType::typeName(qMetaTypeId<T>())) + QLatin1Char(' ') +
           QString::fromUtf8(text);
}

// What a list or map type holds, for code that walks records generically. elementType is
// QMetaType::UnknownType for a type that is neither a known list nor a known QMap<int, T>.
struct ContainerInfo
{
    int elementType = QMetaType::UnknownType;
    bool intKeyed = false; // a QMap<int, T> rather than a QList<T>
};
ContainerInfo containerInfo(int typeId);

} // namespace vms_sdk::record_json
