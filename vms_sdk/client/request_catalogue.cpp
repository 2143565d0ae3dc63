// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The request catalogue by name: each row generated from the typed layer, so that sending by
// name is the typed send with its arguments read from values.
#include <vms_sdk/pending_request.h>

#include "vms_sdk/client/meta_types.h"
#include "vms_sdk/client/record_json.h"

#include <QJsonValue>
#include <QMetaProperty>
#include <QStringList>

#include <algorithm>

namespace vms_sdk {
namespace {

using Invoke = PendingRequest* (*)(const QVariantList& values);

struct CatalogueRow
{
    RequestEntry entry;
    Invoke invoke;
};

constexpr std::size_t countNames(std::string_view names)
{
    return names.empty() ? 0 : 1 + std::size_t(std::count(names.begin(), names.end(), ','));
}

template<auto Function, class... A, std::size_t... I>
PendingRequest* invokeWith(const QVariantList& values, std::index_sequence<I...>)
{
    return send<Function>(values.value(int(I)).template value<A>()...);
}

template<auto Function, class R, class... A>
CatalogueRow makeRow(R (*)(A...))
{
    using Traits = RequestTraits<Function>;
    CatalogueRow row{.entry = {.name = QString::fromLatin1(Traits::name),
                               .answer = detail::answerMethod<Traits::answer>()},
                     .invoke = [](const QVariantList& values) {
                         return invokeWith<Function, std::decay_t<A>...>(
                             values, std::index_sequence_for<A...>());
                     }};
    if constexpr (countNames(Traits::parameters) == 0) {
        static_assert(sizeof...(A) == 1, "a request without parameter names takes a condition");
        using Condition = std::tuple_element_t<0, std::tuple<std::decay_t<A>...>>;
        row.entry.conditionType = qMetaTypeId<Condition>();
        const QMetaObject& meta = Condition::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            row.entry.parameters.append(
                {QString::fromLatin1(property.name()), property.userType()});
        }
    } else {
        static_assert(countNames(Traits::parameters) == sizeof...(A),
                      "one parameter name per argument");
        const QStringList names = QString::fromLatin1(Traits::parameters).split(QLatin1Char(','));
        const int types[] = {qMetaTypeId<std::decay_t<A>>()...};
        for (int i = 0; i < names.size(); ++i)
            row.entry.parameters.append({names[i], types[i]});
    }
    return row;
}

const QList<CatalogueRow>& rows()
{
    static const QList<CatalogueRow> rows = [] {
        // The condition's properties are read by their registered type names.
        registerRecordMetaTypes();
#define VMS_ROW(function, ...) makeRow<&vms_sdk::function>(&vms_sdk::function),
        return QList<CatalogueRow>{VMS_SDK_ANSWERED_REQUESTS(VMS_ROW)
                                       VMS_SDK_UNANSWERED_REQUESTS(VMS_ROW)};
#undef VMS_ROW
    }();
    return rows;
}

const CatalogueRow* findRow(const QString& name)
{
    const auto found = std::find_if(rows().begin(), rows().end(), [&](const CatalogueRow& row) {
        return row.entry.name == name;
    });
    return found == rows().end() ? nullptr : &*found;
}

// "channelId.devId" = x becomes "channelId" = {"devId": x}, at any depth.
QVariantMap nested(const QVariantMap& arguments)
{
    QVariantMap result;
    for (auto it = arguments.begin(); it != arguments.end(); ++it) {
        const int dot = it.key().indexOf(QLatin1Char('.'));
        if (dot < 0) {
            result.insert(it.key(), it.value());
            continue;
        }
        const QString head = it.key().left(dot);
        QVariantMap inner = result.value(head).toMap();
        inner.insert(it.key().mid(dot + 1), it.value());
        result.insert(head, inner);
    }
    for (auto it = result.begin(); it != result.end(); ++it) {
        if (it.value().userType() == QMetaType::QVariantMap)
            it.value() = nested(it.value().toMap());
    }
    return result;
}

// The value as the meta-type `type`; an invalid QVariant when it does not convert.
QVariant converted(const QVariant& value, int type)
{
    if (value.userType() == type)
        return value;
    if (value.userType() == QMetaType::QVariantMap &&
        (QMetaType::typeFlags(type) & QMetaType::IsGadget)) {
        // Property by property, so that its fields convert as the parameters do.
        const QMetaObject* meta = QMetaType::metaObjectForType(type);
        QVariant record(type, nullptr);
        const QVariantMap fields = value.toMap();
        for (auto it = fields.begin(); it != fields.end(); ++it) {
            const int index = meta->indexOfProperty(it.key().toLatin1().constData());
            const QVariant field =
                index < 0 ? QVariant() : converted(it.value(), meta->property(index).userType());
            if (!field.isValid())
                return {};
            meta->property(index).writeOnGadget(record.data(), field);
        }
        return record;
    }
    const bool structured =
        value.userType() == QMetaType::QVariantMap || value.userType() == QMetaType::QVariantList;
    if (!structured) {
        if (QMetaType::typeFlags(type) & QMetaType::IsEnumeration) {
            bool ok = false;
            const qint32 number = value.toInt(&ok);
            return ok && QMetaType::sizeOf(type) == sizeof number ? QVariant(type, &number)
                                                                  : QVariant();
        }
        QVariant copy = value;
        if (copy.convert(type))
            return copy;
    }
    // Lists and maps: read the way their JSON form is read.
    QVariant read;
    if (!record_json::variantFromJson(QJsonValue::fromVariant(value), type, &read))
        return {};
    return read;
}

QString typeName(int type)
{
    return QString::fromLatin1(QMetaType::typeName(type));
}

QString parameterNames(const RequestEntry& entry)
{
    QStringList names;
    for (const RequestParameter& parameter : entry.parameters)
        names.append(parameter.name);
    return names.join(QStringLiteral(", "));
}

} // namespace

const QList<RequestEntry>& request_catalogue()
{
    static const QList<RequestEntry> entries = [] {
        QList<RequestEntry> entries;
        for (const CatalogueRow& row : rows())
            entries.append(row.entry);
        return entries;
    }();
    return entries;
}

const RequestEntry* find_request(const QString& name)
{
    const auto& entries = request_catalogue();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const RequestEntry& entry) { return entry.name == name; });
    return found == entries.end() ? nullptr : &*found;
}

PendingRequest* send_request(const QString& name, const QVariantMap& arguments, QString* error)
{
    const auto fail = [error](const QString& reason) -> PendingRequest* {
        if (error)
            *error = reason;
        return nullptr;
    };
    const CatalogueRow* row = findRow(name);
    if (!row) {
        QStringList names;
        for (const RequestEntry& entry : request_catalogue())
            names.append(entry.name);
        names.sort();
        return fail(QStringLiteral("unknown request \"%1\"; the requests are: %2")
                        .arg(name, names.join(QStringLiteral(", "))));
    }
    const RequestEntry& entry = row->entry;
    const QVariantMap values = nested(arguments);
    for (auto it = values.begin(); it != values.end(); ++it) {
        const bool known =
            std::any_of(entry.parameters.begin(), entry.parameters.end(),
                        [&](const RequestParameter& p) { return p.name == it.key(); });
        if (!known) {
            return fail(QStringLiteral("%1 has no parameter \"%2\"; its parameters are: %3")
                            .arg(name, it.key(), parameterNames(entry)));
        }
    }

    // A record starts from its own defaults; only the properties given are written.
    QVariantList callValues;
    QVariant condition(entry.conditionType, nullptr);
    for (int i = 0; i < entry.parameters.size(); ++i) {
        const RequestParameter& parameter = entry.parameters[i];
        QVariant value(parameter.metaType, nullptr);
        if (values.contains(parameter.name)) {
            value = converted(values.value(parameter.name), parameter.metaType);
            if (!value.isValid()) {
                return fail(QStringLiteral("%1: parameter \"%2\" takes %3, not \"%4\"")
                                .arg(name, parameter.name, typeName(parameter.metaType),
                                     values.value(parameter.name).toString()));
            }
            if (entry.conditionType != 0) {
                const QMetaObject* meta = QMetaType::metaObjectForType(entry.conditionType);
                meta->property(meta->propertyOffset() + i).writeOnGadget(condition.data(), value);
            }
        }
        callValues.append(value);
    }
    if (entry.conditionType != 0)
        callValues = {condition};
    return row->invoke(callValues);
}

} // namespace vms_sdk
