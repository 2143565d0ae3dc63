// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "value_text.h"

#include <QAssociativeIterable>
#include <QDate>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QMetaProperty>
#include <QSequentialIterable>

namespace vms_cli {

namespace {

enum class Kind { Null, Enum, Record, Bytes, List, Map, Pair, Scalar };

const QMetaObject* recordMeta(const QVariant& value)
{
    if (!(QMetaType::typeFlags(value.userType()) & QMetaType::IsGadget))
        return nullptr;
    return QMetaType::metaObjectForType(value.userType());
}

bool isEnum(const QVariant& value)
{
    // Every public enumeration is a 32-bit integer underneath.
    return !enumKey(value.userType(), 0).isEmpty() || !enumKey(value.userType(), 1).isEmpty();
}

int enumNumber(const QVariant& value)
{
    return *static_cast<const qint32*>(value.constData());
}

Kind kindOf(const QVariant& value)
{
    if (!value.isValid())
        return Kind::Null;
    if (isEnum(value))
        return Kind::Enum;
    if (recordMeta(value))
        return Kind::Record;
    switch (value.userType()) {
    case QMetaType::QByteArray:
        return Kind::Bytes;
    case QMetaType::QString:
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime:
        return Kind::Scalar;
    default:
        break;
    }
    if (value.canConvert<QtMetaTypePrivate::QPairVariantInterfaceImpl>())
        return Kind::Pair;
    if (value.canConvert<QVariantMap>() || value.canConvert<QVariantHash>())
        return Kind::Map;
    if (value.canConvert<QVariantList>())
        return Kind::List;
    return Kind::Scalar;
}

// Each property of a record in declaration order, as (name, value).
QList<std::pair<QString, QVariant>> recordFields(const QVariant& value)
{
    QList<std::pair<QString, QVariant>> fields;
    const QMetaObject* meta = recordMeta(value);
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        fields.append({QLatin1String(property.name()), property.readOnGadget(value.constData())});
    }
    return fields;
}

QList<std::pair<QString, QVariant>> mapEntries(const QVariant& value)
{
    QList<std::pair<QString, QVariant>> entries;
    const QAssociativeIterable map = value.value<QAssociativeIterable>();
    for (auto it = map.begin(); it != map.end(); ++it)
        entries.append({scalarText(it.key()), it.value()});
    return entries;
}

QVariantList listItems(const QVariant& value)
{
    QVariantList items;
    for (const QVariant& item : value.value<QSequentialIterable>())
        items.append(item);
    return items;
}

QVariantList pairItems(const QVariant& value)
{
    const auto pair = value.value<QtMetaTypePrivate::QPairVariantInterfaceImpl>();
    const QtMetaTypePrivate::VariantData first = pair.first();
    const QtMetaTypePrivate::VariantData second = pair.second();
    return QVariantList{QVariant(first.metaTypeId, first.data),
                        QVariant(second.metaTypeId, second.data)};
}

} // namespace

QString scalarText(const QVariant& value)
{
    switch (kindOf(value)) {
    case Kind::Null:
        return QStringLiteral("null");
    case Kind::Enum: {
        const QString key = enumKey(value.userType(), enumNumber(value));
        return key.isEmpty() ? QString::number(enumNumber(value)) : key;
    }
    case Kind::Bytes:
        return QStringLiteral("<%1 bytes>").arg(value.toByteArray().size());
    default:
        break;
    }
    switch (value.userType()) {
    case QMetaType::QString:
        return value.toString().isEmpty() ? QStringLiteral("\"\"") : value.toString();
    case QMetaType::QDateTime:
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("yyyy-MM-dd"));
    default:
        return value.toString();
    }
}

QStringList valueLines(const QString& label, const QVariant& value, int maxItems, int indent)
{
    const QString pad(indent * 2, QLatin1Char(' '));
    const QString head = label.isEmpty() ? pad : pad + label + QStringLiteral(": ");
    QList<std::pair<QString, QVariant>> children;
    QString summary;
    switch (kindOf(value)) {
    case Kind::Record:
        children = recordFields(value);
        break;
    case Kind::Map:
        children = mapEntries(value);
        summary = QStringLiteral("{%1}").arg(children.size());
        break;
    case Kind::List:
    case Kind::Pair: {
        const QVariantList items =
            kindOf(value) == Kind::Pair ? pairItems(value) : listItems(value);
        for (int i = 0; i < items.size(); ++i)
            children.append({QStringLiteral("[%1]").arg(i), items[i]});
        summary = QStringLiteral("(%1)").arg(items.size());
        break;
    }
    default:
        return {head + scalarText(value)};
    }
    QStringList lines;
    // A record at the top prints its fields at the same depth: the label says nothing more.
    const bool flat = label.isEmpty();
    if (!flat)
        lines.append(summary.isEmpty() ? QString(pad + label + QLatin1Char(':'))
                                       : QString(head + summary));
    if (children.isEmpty() && flat)
        lines.append(pad + (summary.isEmpty() ? QStringLiteral("{}") : summary));
    const int shown = maxItems < 0 || kindOf(value) == Kind::Record
                          ? int(children.size())
                          : std::min(int(children.size()), maxItems);
    for (int i = 0; i < shown; ++i)
        lines +=
            valueLines(children[i].first, children[i].second, maxItems, flat ? indent : indent + 1);
    if (shown < children.size())
        lines.append(QString((flat ? indent : indent + 1) * 2, QLatin1Char(' ')) +
                     QStringLiteral("... %1 more").arg(children.size() - shown));
    return lines;
}

QJsonValue valueJson(const QVariant& value)
{
    switch (kindOf(value)) {
    case Kind::Null:
        return QJsonValue::Null;
    case Kind::Enum:
        return scalarText(value);
    case Kind::Bytes:
        return QString::fromLatin1(value.toByteArray().toBase64());
    case Kind::Record:
    case Kind::Map: {
        QJsonObject object;
        const auto fields = kindOf(value) == Kind::Record ? recordFields(value) : mapEntries(value);
        for (const auto& [name, field] : fields)
            object.insert(name, valueJson(field));
        return object;
    }
    case Kind::List:
    case Kind::Pair: {
        QJsonArray array;
        const QVariantList items =
            kindOf(value) == Kind::Pair ? pairItems(value) : listItems(value);
        for (const QVariant& item : items)
            array.append(valueJson(item));
        return array;
    }
    case Kind::Scalar:
        break;
    }
    switch (value.userType()) {
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Double:
    case QMetaType::Float:
        return value.toDouble();
    default:
        return scalarText(value) == QLatin1String("\"\"") ? QString() : scalarText(value);
    }
}

QVariant pick(const QVariant& value, const QString& path)
{
    if (path.isEmpty())
        return value;
    const QString part = path.section(QLatin1Char('.'), 0, 0);
    const QString rest = path.section(QLatin1Char('.'), 1);
    switch (kindOf(value)) {
    case Kind::Record:
    case Kind::Map: {
        const auto fields = kindOf(value) == Kind::Record ? recordFields(value) : mapEntries(value);
        for (const auto& [name, field] : fields) {
            if (name == part)
                return pick(field, rest);
        }
        return {};
    }
    case Kind::List:
    case Kind::Pair: {
        bool ok = false;
        const int index = part.toInt(&ok);
        const QVariantList items =
            kindOf(value) == Kind::Pair ? pairItems(value) : listItems(value);
        return ok && index >= 0 && index < items.size() ? pick(items[index], rest) : QVariant();
    }
    default:
        return {};
    }
}

} // namespace vms_cli
