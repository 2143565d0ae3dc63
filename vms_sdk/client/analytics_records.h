// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_ANALYTICS_RECORDS_H
#define VMS_SDK_ANALYTICS_RECORDS_H

// Records of the analytics of devices: customer counts, heat maps, customer groups, licence
// plates and parking locks. Time ranges are counted in periods of countType.

#include "common_records.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

namespace vms_sdk {

// countType: 0 hour, 1 day, 2 week, 3 month, 4 quarter, 5 year.
struct VMS_CLIENT_SDK_EXPORT GetCustomersCntCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int countType MEMBER countType)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    int countType = 1;
    bool operator==(const GetCustomersCntCondition&) const = default;
};

// The counts of one period of the request, in order from its start time.
struct VMS_CLIENT_SDK_EXPORT CustomersCountInfo
{
    Q_GADGET
    Q_PROPERTY(int passCnt MEMBER passCnt)
    Q_PROPERTY(int inCnt MEMBER inCnt)
    Q_PROPERTY(int outCnt MEMBER outCnt)
    Q_PROPERTY(int keepCnt MEMBER keepCnt)
public:
    int passCnt = 0;
    int inCnt = 0;
    int outCnt = 0;
    int keepCnt = 0;
    bool operator==(const CustomersCountInfo&) const = default;
};

using CustomersCountList = QList<CustomersCountInfo>;

struct VMS_CLIENT_SDK_EXPORT CustomersRegionInfo
{
    Q_GADGET
    Q_PROPERTY(int id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
public:
    int id = 0;
    QString name{};
    bool operator==(const CustomersRegionInfo&) const = default;
};

using CustomersRegionList = QList<CustomersRegionInfo>;

struct VMS_CLIENT_SDK_EXPORT GetCustomersRegionAttentionCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int countType MEMBER countType)
    Q_PROPERTY(int regionId MEMBER regionId)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    int countType = 1; // as in GetCustomersCntCondition
    int regionId = 0;
    bool operator==(const GetCustomersRegionAttentionCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT CustomersRegionAttentionInfo
{
    Q_GADGET
    Q_PROPERTY(int peopleCnt MEMBER peopleCnt)
    Q_PROPERTY(int stayCnt MEMBER stayCnt)
    Q_PROPERTY(double stayRate MEMBER stayRate)
    Q_PROPERTY(int stayAverageTime MEMBER stayAverageTime)
public:
    int peopleCnt = 0;
    int stayCnt = 0;
    double stayRate = 0.0;
    int stayAverageTime = 0; // seconds
    bool operator==(const CustomersRegionAttentionInfo&) const = default;
};

using CustomersRegionAttentionList = QList<CustomersRegionAttentionInfo>;

struct VMS_CLIENT_SDK_EXPORT GetCutomersHeatMapCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    bool operator==(const GetCutomersHeatMapCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT CustomersHeatMapInfo
{
    Q_GADGET
    Q_PROPERTY(int width MEMBER width)
    Q_PROPERTY(int height MEMBER height)
    Q_PROPERTY(QByteArray bgJpeg MEMBER bgJpeg)
    Q_PROPERTY(QByteArray heatmapData MEMBER heatmapData)
public:
    int width = 0;
    int height = 0;
    QByteArray bgJpeg{}; // the background picture
    QByteArray heatmapData{};
    bool operator==(const CustomersHeatMapInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT GetCustomerGroupCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int countType MEMBER countType)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QDateTime startTime{};
    QDateTime endTime{};
    int countType = 1; // as in GetCustomersCntCondition
    bool operator==(const GetCustomerGroupCondition&) const = default;
};

// The faces counted in one period, by sex and by age group.
struct VMS_CLIENT_SDK_EXPORT CustomerGroupInfo
{
    Q_GADGET
    Q_PROPERTY(int total MEMBER total)
    Q_PROPERTY(int male MEMBER male)
    Q_PROPERTY(int female MEMBER female)
    Q_PROPERTY(int childNum MEMBER childNum)
    Q_PROPERTY(int juvenileNum MEMBER juvenileNum)
    Q_PROPERTY(int youthNum MEMBER youthNum)
    Q_PROPERTY(int midlifeNum MEMBER midlifeNum)
    Q_PROPERTY(int senileNum MEMBER senileNum)
public:
    int total = 0;
    int male = 0;
    int female = 0;
    int childNum = 0;
    int juvenileNum = 0;
    int youthNum = 0;
    int midlifeNum = 0;
    int senileNum = 0;
    bool operator==(const CustomerGroupInfo&) const = default;
};

using CustomerGroupList = QList<CustomerGroupInfo>;

struct VMS_CLIENT_SDK_EXPORT GetLicensePlateRecRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(QString plateNo MEMBER plateNo)
    Q_PROPERTY(int vehicleType MEMBER vehicleType)
    Q_PROPERTY(int vehicleColor MEMBER vehicleColor)
    Q_PROPERTY(int vehicleOrientation MEMBER vehicleOrientation)
    Q_PROPERTY(int plateColor MEMBER plateColor)
    Q_PROPERTY(int plateType MEMBER plateType)
    Q_PROPERTY(int pageNum MEMBER pageNum)
    Q_PROPERTY(int pageSize MEMBER pageSize)
public:
    QString requestId{};
    ChannelId channelId{};
    QDateTime startTime{};
    QDateTime endTime{};
    QString plateNo{};
    int vehicleType = 0;
    int vehicleColor = 0;
    int vehicleOrientation = 0;
    int plateColor = 0;
    int plateType = 0;
    int pageNum = 0;
    int pageSize = 0;
    bool operator==(const GetLicensePlateRecRecordsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT LicensePlateRecRecordInfo
{
    Q_GADGET
    Q_PROPERTY(int channelIndex MEMBER channelIndex)
    Q_PROPERTY(QDateTime time MEMBER time)
    Q_PROPERTY(QString plateNum MEMBER plateNum)
    Q_PROPERTY(int plateColor MEMBER plateColor)
    Q_PROPERTY(int plateType MEMBER plateType)
    Q_PROPERTY(QString picPath MEMBER picPath)
    Q_PROPERTY(int vehicleType MEMBER vehicleType)
    Q_PROPERTY(int vehicleColor MEMBER vehicleColor)
    Q_PROPERTY(int vehicleOrientation MEMBER vehicleOrientation)
public:
    int channelIndex = 0;
    QDateTime time{};
    QString plateNum{};
    int plateColor = 0;
    int plateType = 0;
    QString picPath{};
    int vehicleType = 0;
    int vehicleColor = 0;
    int vehicleOrientation = 0;
    bool operator==(const LicensePlateRecRecordInfo&) const = default;
};

using LicensePlateRecRecordList = QList<LicensePlateRecRecordInfo>;

struct VMS_CLIENT_SDK_EXPORT CtrlParkingLockCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QString lockId MEMBER lockId)
    Q_PROPERTY(int status MEMBER status)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QString lockId{};
    int status = 0;
    bool operator==(const CtrlParkingLockCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT ParkingLockInfo
{
    Q_GADGET
    Q_PROPERTY(QString lockId MEMBER lockId)
    Q_PROPERTY(int status MEMBER status)
    Q_PROPERTY(QString regionName MEMBER regionName)
    Q_PROPERTY(QString parkingId MEMBER parkingId)
public:
    QString lockId{};
    int status = 0;
    QString regionName{};
    QString parkingId{};
    bool operator==(const ParkingLockInfo&) const = default;
};

using ParkingLockList = QList<ParkingLockInfo>;

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::GetCustomersCntCondition)
Q_DECLARE_METATYPE(vms_sdk::CustomersCountInfo)
Q_DECLARE_METATYPE(vms_sdk::CustomersRegionInfo)
Q_DECLARE_METATYPE(vms_sdk::GetCustomersRegionAttentionCondition)
Q_DECLARE_METATYPE(vms_sdk::CustomersRegionAttentionInfo)
Q_DECLARE_METATYPE(vms_sdk::GetCutomersHeatMapCondition)
Q_DECLARE_METATYPE(vms_sdk::CustomersHeatMapInfo)
Q_DECLARE_METATYPE(vms_sdk::GetCustomerGroupCondition)
Q_DECLARE_METATYPE(vms_sdk::CustomerGroupInfo)
Q_DECLARE_METATYPE(vms_sdk::GetLicensePlateRecRecordsCondition)
Q_DECLARE_METATYPE(vms_sdk::LicensePlateRecRecordInfo)
Q_DECLARE_METATYPE(vms_sdk::CtrlParkingLockCondition)
Q_DECLARE_METATYPE(vms_sdk::ParkingLockInfo)

#endif // VMS_SDK_ANALYTICS_RECORDS_H
