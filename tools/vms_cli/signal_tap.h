// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QMetaMethod>
#include <QObject>
#include <QVariantList>

#include <functional>

namespace vms_cli {

// Connects to any number of signals by their meta-methods and hands each emission over as
// the signal and its arguments as values: one receiver for every push, however it is typed.
class SignalTap : public QObject
{
public:
    using Receiver = std::function<void(const QMetaMethod& signal, const QVariantList& args)>;
    explicit SignalTap(Receiver receiver, QObject* parent = nullptr);

    bool tap(QObject* sender, const QMetaMethod& signal);
    // Every signal of `sender` whose name passes `wanted`.
    void tapAll(QObject* sender, const std::function<bool(const QMetaMethod&)>& wanted);

    int qt_metacall(QMetaObject::Call call, int id, void** argv) override;

private:
    Receiver m_receiver;
    QList<QMetaMethod> m_signals; // by slot number
};

} // namespace vms_cli
