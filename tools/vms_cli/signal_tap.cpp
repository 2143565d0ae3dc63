// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "signal_tap.h"

namespace vms_cli {

SignalTap::SignalTap(Receiver receiver, QObject* parent)
    : QObject(parent)
    , m_receiver(std::move(receiver))
{}

bool SignalTap::tap(QObject* sender, const QMetaMethod& signal)
{
    // The slot numbers past QObject's own methods are ours: qt_metacall gets them back.
    const int slot = QObject::staticMetaObject.methodCount() + int(m_signals.size());
    if (!QMetaObject::connect(sender, signal.methodIndex(), this, slot, Qt::DirectConnection))
        return false;
    m_signals.append(signal);
    return true;
}

void SignalTap::tapAll(QObject* sender, const std::function<bool(const QMetaMethod&)>& wanted)
{
    const QMetaObject* meta = sender->metaObject();
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal && wanted(method))
            tap(sender, method);
    }
}

int SignalTap::qt_metacall(QMetaObject::Call call, int id, void** argv)
{
    id = QObject::qt_metacall(call, id, argv);
    if (id < 0 || call != QMetaObject::InvokeMetaMethod)
        return id;
    if (id < m_signals.size()) {
        const QMetaMethod& signal = m_signals[id];
        QVariantList args;
        for (int i = 0; i < signal.parameterCount(); ++i)
            args.append(QVariant(signal.parameterType(i), argv[i + 1]));
        m_receiver(signal, args);
    }
    return id - int(m_signals.size());
}

} // namespace vms_cli
