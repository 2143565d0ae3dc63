// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "alarm_panel.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QHeaderView>

using namespace vms_sdk;

AlarmPanel::AlarmPanel(QWidget* parent, int keep)
    : QTreeWidget(parent)
    , m_keep(keep)
{
    setHeaderLabels({tr("Time"), tr("Camera"), tr("Alarm"), tr("Triggered by")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(ClientSignals::instance(), &ClientSignals::signalCommonAlarmPush, this,
            [this](const AlarmInfo& alarm) {
                auto* item = new QTreeWidgetItem(
                    {alarm.alarmTime,
                     QStringLiteral("%1 #%2")
                         .arg(alarm.channelId.devId)
                         .arg(alarm.channelId.channelIndex),
                     // Which of its texts a device fills depends on the alarm's kind.
                     alarm.alarmName.isEmpty() ? alarm.alarmType : alarm.alarmName,
                     alarm.triggerName});
                item->setToolTip(2, QString::fromUtf8(alarm.detail));
                insertTopLevelItem(0, item);
                while (topLevelItemCount() > m_keep)
                    delete takeTopLevelItem(topLevelItemCount() - 1);
            });
}
