// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "json_fields.h"

#include <QStringList>

#include <cmath>
#include <limits>

namespace vms_dgw_sim {

JsonFields::JsonFields(const QJsonObject& object, const QString& path, QString* error)
    : m_object(object)
    , m_path(path)
    , m_error(error)
{}

QString JsonFields::pathOf(const QString& key) const
{
    return m_path.isEmpty() ? key : m_path + QLatin1Char('.') + key;
}

void JsonFields::fail(const QString& key, const QString& problem)
{
    if (ok())
        *m_error = pathOf(key) + QStringLiteral(": ") + problem;
}

void JsonFields::failHere(const QString& problem)
{
    if (ok())
        *m_error =
            (m_path.isEmpty() ? QStringLiteral("config") : m_path) + QStringLiteral(": ") + problem;
}

QJsonValue JsonFields::take(const QString& key)
{
    m_read.insert(key);
    if (!ok())
        return QJsonValue(QJsonValue::Undefined);
    return m_object.value(key);
}

QString JsonFields::text(const QString& key, const QString& fallback)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return fallback;
    if (!value.isString()) {
        fail(key, QStringLiteral("expected a string"));
        return fallback;
    }
    return value.toString();
}

QString JsonFields::requiredText(const QString& key)
{
    if (ok() && !has(key))
        fail(key, QStringLiteral("missing"));
    const QString value = text(key);
    if (ok() && value.isEmpty())
        fail(key, QStringLiteral("must not be empty"));
    return value;
}

qint64 JsonFields::integer(const QString& key, qint64 fallback, qint64 minimum, qint64 maximum)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return fallback;
    const double number = value.toDouble();
    if (!value.isDouble() || std::floor(number) != number) {
        fail(key, QStringLiteral("expected an integer"));
        return fallback;
    }
    if (number < double(minimum) || number > double(maximum)) {
        fail(key, QStringLiteral("%1 is outside %2..%3").arg(number).arg(minimum).arg(maximum));
        return fallback;
    }
    return qint64(number);
}

qint32 JsonFields::int32(const QString& key, qint32 fallback)
{
    return qint32(integer(key, fallback, std::numeric_limits<qint32>::min(),
                          std::numeric_limits<qint32>::max()));
}

quint32 JsonFields::uint32(const QString& key, quint32 fallback)
{
    return quint32(integer(key, fallback, 0, std::numeric_limits<quint32>::max()));
}

double JsonFields::number(const QString& key, double fallback)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return fallback;
    if (!value.isDouble()) {
        fail(key, QStringLiteral("expected a number"));
        return fallback;
    }
    return value.toDouble();
}

bool JsonFields::flag(const QString& key, bool fallback)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return fallback;
    if (!value.isBool()) {
        fail(key, QStringLiteral("expected true or false"));
        return fallback;
    }
    return value.toBool();
}

QByteArray JsonFields::base64(const QString& key)
{
    const QString encoded = text(key);
    if (encoded.isEmpty())
        return {};
    const auto decoded =
        QByteArray::fromBase64Encoding(encoded.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded) {
        fail(key, QStringLiteral("expected base64 text"));
        return {};
    }
    return *decoded;
}

QStringList JsonFields::texts(const QString& key)
{
    QStringList result;
    const QJsonArray items = array(key);
    for (const QJsonValue& item : items) {
        if (!item.isString()) {
            fail(key, QStringLiteral("expected an array of strings"));
            return {};
        }
        result.append(item.toString());
    }
    return result;
}

QJsonArray JsonFields::array(const QString& key)
{
    const QJsonValue value = take(key);
    if (value.isUndefined())
        return {};
    if (!value.isArray()) {
        fail(key, QStringLiteral("expected an array"));
        return {};
    }
    return value.toArray();
}

JsonFields JsonFields::object(const QString& key)
{
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isObject())
        fail(key, QStringLiteral("expected an object"));
    return JsonFields(value.toObject(), pathOf(key), m_error);
}

QList<JsonFields> JsonFields::objects(const QString& key)
{
    QList<JsonFields> result;
    const QJsonArray items = array(key);
    for (int i = 0; i < items.size(); ++i) {
        const QString itemKey = key + QStringLiteral("[%1]").arg(i);
        if (!items.at(i).isObject()) {
            fail(itemKey, QStringLiteral("expected an object"));
            return {};
        }
        result.append(JsonFields(items.at(i).toObject(), pathOf(itemKey), m_error));
    }
    return result;
}

bool JsonFields::finish()
{
    for (auto it = m_object.constBegin(); it != m_object.constEnd() && ok(); ++it) {
        if (!m_read.contains(it.key()))
            fail(it.key(), QStringLiteral("unknown key"));
    }
    return ok();
}

} // namespace vms_dgw_sim
