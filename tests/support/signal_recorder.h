// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <vms_sdk/vms_client_sdk.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QStringList>

#include <memory>
#include <utility>
#include <vector>

namespace vms_test {

// Every emission of every ClientSignals signal, by signal name, from its construction on.
class SignalRecorder
{
public:
    SignalRecorder()
    {
        const QMetaObject& meta = vms_sdk::ClientSignals::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            if (method.methodType() == QMetaMethod::Signal)
                m_spies.emplace_back(
                    QString::fromLatin1(method.name()),
                    std::make_unique<QSignalSpy>(vms_sdk::ClientSignals::instance(), method));
        }
    }

    // The names of the signals emitted, once per emission.
    QStringList names() const
    {
        QStringList names;
        for (const auto& [name, spy] : m_spies) {
            for (int i = 0; i < spy->count(); ++i)
                names.append(name);
        }
        return names;
    }

    // The arguments of the first emission of the named signal; none when it was not emitted.
    QVariantList argumentsOf(const QString& name) const
    {
        for (const auto& [signalName, spy] : m_spies) {
            if (signalName == name && !spy->isEmpty())
                return spy->first();
        }
        return {};
    }

    // The names of the signals whose emissions named the request id: by a Response, or by a
    // first argument that is text.
    QStringList endingsOf(const QString& requestId) const
    {
        QStringList endings;
        for (const auto& [name, spy] : m_spies) {
            for (const QVariantList& args : *spy) {
                if (requestIdOf(args.value(0)) == requestId)
                    endings.append(name);
            }
        }
        return endings;
    }

    void clear()
    {
        for (auto& [name, spy] : m_spies)
            spy->clear();
    }

private:
    static QString requestIdOf(const QVariant& first)
    {
        if (first.userType() == qMetaTypeId<vms_sdk::Response>())
            return first.value<vms_sdk::Response>().requestId;
        return first.userType() == QMetaType::QString ? first.toString() : QString();
    }

    std::vector<std::pair<QString, std::unique_ptr<QSignalSpy>>> m_spies;
};

} // namespace vms_test
