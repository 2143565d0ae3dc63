// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_CLIENT_ACTIONS_H
#define VMS_SDK_CLIENT_ACTIONS_H

#include "vms_types.h"

#include <QDateTime>
#include <QObject>
#include <QString>

namespace vms_sdk {

// Announces the streams the application asked for, so that a view can get ready for the
// data before it arrives.
class VMS_CLIENT_SDK_EXPORT ClientActions : public QObject
{
    Q_OBJECT
public:
    static ClientActions* instance();

Q_SIGNALS:
    void signalConnLiveVideoTrigger(const QString& devId, int channelIndex, int streamType);
    void signalPlaybackByFileTrigger(const QString& devId, int channelIndex,
                                     const QString& fileName, int recordSrc,
                                     vms_sdk::StreamId streamId);
    void signalPlaybackByTimeTrigger(const QString& devId, int channelIndex,
                                     const QDateTime& fromTime, int recordSrc,
                                     vms_sdk::StreamId streamId);

private:
    ClientActions() = default;
};

} // namespace vms_sdk

#endif // VMS_SDK_CLIENT_ACTIONS_H
