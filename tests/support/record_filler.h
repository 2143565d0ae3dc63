// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

// Builds records whose every field holds a value of its own: different from the field's
// default and from every other field of the record. A conversion that forgets a field leaves a
// default behind, one that swaps two fields swaps two different values, and either shows up
// when the record is compared after a round trip. Works for any record through its gadget
// properties, so a field added later is covered without touching a test.

#include "vms_sdk/client/meta_types.h"
#include "vms_sdk/client/record_json.h"

#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaProperty>
#include <QTime>

#include <gtest/gtest.h>

namespace vms_test {

class RecordFiller
{
public:
    // Property types are found by name, which needs the records registered first.
    RecordFiller() { vms_sdk::registerRecordMetaTypes(); }

    template<class T>
    T make()
    {
        bool read = false;
        const T record = vms_sdk::record_json::fromJson<T>(objectFor(T::staticMetaObject), &read);
        EXPECT_TRUE(read) << T::staticMetaObject.className()
                          << " has a field of a type the JSON helper cannot read";
        return record;
    }

    template<class T>
    QList<T> makeList(int count = 2)
    {
        QList<T> list;
        for (int i = 0; i < count; ++i)
            list.append(make<T>());
        return list;
    }

    QJsonObject objectFor(const QMetaObject& metaObject)
    {
        QJsonObject object;
        for (int i = metaObject.propertyOffset(); i < metaObject.propertyCount(); ++i) {
            const QMetaProperty property = metaObject.property(i);
            object.insert(QString::fromLatin1(property.name()), valueFor(property.userType()));
        }
        return object;
    }

    // The JSON form of a fresh value of the type; undefined for a type the JSON helper cannot
    // hold, which then makes the record's read fail.
    QJsonValue valueFor(int typeId)
    {
        const int n = next++;
        switch (typeId) {
        case QMetaType::Bool:
            return true;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
        case QMetaType::ULongLong:
            return n;
        case QMetaType::Double:
            return n + 0.25;
        case QMetaType::QString:
            // Beyond Latin-1, so that a conversion that is not UTF-8 throughout shows.
            return QStringLiteral("t%1-\u00e9\u20ac\u4e2d").arg(n);
        case QMetaType::QByteArray:
            return QString::fromLatin1(
                QByteArray(QByteArray("b\0\xff", 3) + QByteArray::number(n)).toBase64());
        case QMetaType::QStringList:
            return QJsonArray{valueFor(QMetaType::QString), valueFor(QMetaType::QString)};
        case QMetaType::QDate:
            return QDate(2020, 1, 1).addDays(n).toString(Qt::ISODate);
        case QMetaType::QTime:
            return dayTime(n).toString(Qt::ISODateWithMs);
        case QMetaType::QDateTime:
            // Noon-ish local times: clear of any daylight-saving gap.
            return QDateTime(QDate(2020, 1, 1).addDays(n), dayTime(n)).toString(Qt::ISODateWithMs);
        default:
            break;
        }
        const QMetaType::TypeFlags flags = QMetaType::typeFlags(typeId);
        if (flags & QMetaType::IsEnumeration)
            return n;
        if (flags & QMetaType::IsGadget)
            return objectFor(*QMetaType::metaObjectForType(typeId));
        const auto container = vms_sdk::record_json::containerInfo(typeId);
        if (container.elementType == QMetaType::UnknownType)
            return QJsonValue(QJsonValue::Undefined);
        if (container.intKeyed) {
            QJsonObject map;
            map.insert(QString::number(n), valueFor(container.elementType));
            map.insert(QString::number(-n), valueFor(container.elementType));
            return map;
        }
        return QJsonArray{valueFor(container.elementType), valueFor(container.elementType)};
    }

private:
    static QTime dayTime(int n) { return QTime(12, n % 60, (n * 7) % 60, (n * 37) % 1000); }

    int next = 1;
};

} // namespace vms_test
