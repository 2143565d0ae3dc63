// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

namespace vms_dgw_sim {

// Reads the fields of one JSON object of the config file and reports the first problem with
// its path ("pushes[2].channelId.channelIndex: expected an integer"), so that whoever writes a
// config sees at once what is wrong and where. A missing key gives the fallback; a key of the
// wrong type is an error. finish() rejects keys nobody read: a misspelt "everyMS" would
// otherwise silently mean "once".
//
// Once an error is recorded every reader returns its fallback, so a caller reads all its
// fields and checks ok() once at the end.
class JsonFields
{
public:
    JsonFields(const QJsonObject& object, const QString& path, QString* error);

    bool has(const QString& key) const { return m_object.contains(key); }
    bool ok() const { return m_error->isEmpty(); }
    QString path() const { return m_path; }
    QString pathOf(const QString& key) const;

    QString text(const QString& key, const QString& fallback = {});
    QString requiredText(const QString& key);
    qint64 integer(const QString& key, qint64 fallback, qint64 minimum, qint64 maximum);
    qint32 int32(const QString& key, qint32 fallback = 0);
    quint32 uint32(const QString& key, quint32 fallback = 0);
    double number(const QString& key, double fallback = 0);
    bool flag(const QString& key, bool fallback = false);
    QByteArray base64(const QString& key);
    QStringList texts(const QString& key);
    QJsonArray array(const QString& key);

    // The object under `key` (an empty one when the key is missing).
    JsonFields object(const QString& key);
    // Every element of the array under `key`, each of which must be an object.
    QList<JsonFields> objects(const QString& key);

    // Marks a key as read by someone else (the scheduling keys of a push entry).
    void skip(const QString& key) { m_read.insert(key); }

    void fail(const QString& key, const QString& problem);
    void failHere(const QString& problem);

    // Reports the first key that was never read. Returns ok().
    bool finish();

private:
    QJsonValue take(const QString& key);

    QJsonObject m_object;
    QString m_path;
    QString* m_error;
    QSet<QString> m_read;
};

} // namespace vms_dgw_sim
