// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "gateway_status.h"

#include "device_tree.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QFileInfo>

#include <algorithm>

using namespace vms_sdk;

namespace {

QString reasonText(DgwAbnormal reason)
{
    switch (reason) {
    case DgwAbnormalStartFailed:
        return GatewayStatus::tr("could not be started");
    case DgwAbnormalDisconnected:
        return GatewayStatus::tr("lost too often");
    case DgwAbnormalSocketError:
        return GatewayStatus::tr("connection error");
    case DgwAbnormalConnectTimeout:
        return GatewayStatus::tr("never answered");
    case DgwAbnormalInitFailed:
        return GatewayStatus::tr("refused to initialise");
    }
    return GatewayStatus::tr("abnormal (%1)").arg(int(reason));
}

} // namespace

GatewayStatus::GatewayStatus(const DeviceTree* tree, QWidget* parent)
    : QLabel(parent)
    , m_tree(tree)
{
    auto* signals_ = ClientSignals::instance();
    connect(signals_, &ClientSignals::signalPrepareStartDgwSuccess, this, [this] {
        m_state = tr("ready");
        refresh();
    });
    connect(signals_, &ClientSignals::signalDgwAbnormal, this, [this](DgwAbnormal reason) {
        m_state = reasonText(reason);
        refresh();
    });
    connect(tree, &DeviceTree::channelsChanged, this, &GatewayStatus::refresh);
    // The tree connected first, so it has taken the status in when this counts.
    connect(signals_, &ClientSignals::signalDevStatusPush, this, &GatewayStatus::refresh);
}

void GatewayStatus::starting(const QString& program, int devices)
{
    m_program = QFileInfo(program).fileName();
    // The library starts one gateway per hundred devices.
    m_gateways = std::max(1, (devices + 99) / 100);
    m_state = tr("starting");
    refresh();
}

void GatewayStatus::refresh()
{
    setText(tr("%n gateway(s) (%1): %2   |   %3 device(s) online", nullptr, m_gateways)
                .arg(m_program, m_state)
                .arg(m_tree->onlineDevices()));
}
