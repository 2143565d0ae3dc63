// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#ifndef VMS_SDK_FACE_RECORDS_H
#define VMS_SDK_FACE_RECORDS_H

// Records of face libraries, face groups, face detection and face records.

#include "common_records.h"

#include <QByteArray>
#include <QDate>
#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>

namespace vms_sdk {

// A person of a device's face library.
struct VMS_CLIENT_SDK_EXPORT FaceInfo
{
    Q_GADGET
    Q_PROPERTY(int index MEMBER index)
    Q_PROPERTY(QString serialNum MEMBER serialNum)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString faceType MEMBER faceType)
    Q_PROPERTY(QString faceUrl MEMBER faceUrl)
    Q_PROPERTY(int gender MEMBER gender)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(QByteArray faceImage MEMBER faceImage)
    Q_PROPERTY(QString validTime MEMBER validTime)
    Q_PROPERTY(QString invalidTime MEMBER invalidTime)
    Q_PROPERTY(QStringList organizations MEMBER organizations)
public:
    int index = 0; // the face's place in the library
    QString serialNum{};
    QString name{};
    QString faceType{};
    QString faceUrl{};
    int gender = 0;
    int age = 0;
    QByteArray faceImage{};
    QString validTime{};
    QString invalidTime{};
    QStringList organizations{};
    bool operator==(const FaceInfo&) const = default;
};

using FaceInfoList = QList<FaceInfo>;

// Adds a face, or edits one. The fields up to picture travel in the gateway's own message; the
// fields from package on serve the face library of a device application, whose requests travel
// as JSON methods (adding uses that path when package is set; editing always does).
struct VMS_CLIENT_SDK_EXPORT ModifyFaceCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString serialNum MEMBER serialNum)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QStringList organizations MEMBER organizations)
    Q_PROPERTY(int gender MEMBER gender)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(int libraryId MEMBER libraryId)
    Q_PROPERTY(QString faceType MEMBER faceType)
    Q_PROPERTY(QString validTime MEMBER validTime)
    Q_PROPERTY(QString invalidTime MEMBER invalidTime)
    Q_PROPERTY(QByteArray picture MEMBER picture)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(int index MEMBER index)
    Q_PROPERTY(QList<int> groupIds MEMBER groupIds)
    Q_PROPERTY(QString faceId MEMBER faceId)
    Q_PROPERTY(QDate birthdate MEMBER birthdate)
    Q_PROPERTY(QString classification MEMBER classification)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(QStringList jpegBase64List MEMBER jpegBase64List)
    Q_PROPERTY(QStringList jpegUuidList MEMBER jpegUuidList)
public:
    QString requestId{};
    ChannelId channelId{};
    QString serialNum{};
    QString name{};
    QStringList organizations{};
    int gender = 0;
    int age = 0;
    int libraryId = 0;
    QString faceType{};
    QString validTime{};
    QString invalidTime{};
    QByteArray picture{}; // JPEG
    QString package{};
    int index = 0; // the face being edited
    QList<int> groupIds{};
    QString faceId{};
    QDate birthdate{};
    QString classification{};
    QDateTime startTime{}; // validity
    QDateTime endTime{};
    QStringList jpegBase64List{}; // pictures, already Base64 text
    QStringList jpegUuidList{};   // ids of pictures already on the device (editing)
    bool operator==(const ModifyFaceCondition&) const = default;
};

// Pages through a face library. As with ModifyFaceCondition, the fields from package on are
// those of a device application's face library (the JSON path, taken when package is set).
struct VMS_CLIENT_SDK_EXPORT GetFacesCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(unsigned int pageNum MEMBER pageNum)
    Q_PROPERTY(unsigned int pageSize MEMBER pageSize)
    Q_PROPERTY(unsigned int libraryId MEMBER libraryId)
    Q_PROPERTY(bool withPicture MEMBER withPicture)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QString keyword MEMBER keyword)
    Q_PROPERTY(QList<int> groupIds MEMBER groupIds)
    Q_PROPERTY(int gender MEMBER gender)
    Q_PROPERTY(QString active MEMBER active)
    Q_PROPERTY(QString classification MEMBER classification)
    Q_PROPERTY(QString modelingStatus MEMBER modelingStatus)
public:
    QString requestId{};
    ChannelId channelId{};
    unsigned int pageNum = 0;
    unsigned int pageSize = 0;
    unsigned int libraryId = 0;
    bool withPicture = false;
    QString package{};
    QString keyword{};
    QList<int> groupIds{};
    int gender = 0;
    QString active{};
    QString classification{};
    QString modelingStatus{};
    bool operator==(const GetFacesCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DelFaceCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(int index MEMBER index)
public:
    QString requestId{};
    ChannelId channelId{};
    int index = 0;
    bool operator==(const DelFaceCondition&) const = default;
};

// A face of an application's face library and the groups it is to be removed from.
struct VMS_CLIENT_SDK_EXPORT FaceItem
{
    Q_GADGET
    Q_PROPERTY(int index MEMBER index)
    Q_PROPERTY(QList<int> groupIds MEMBER groupIds)
public:
    int index = 0;
    QList<int> groupIds{};
    bool operator==(const FaceItem&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DelFacesCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QList<vms_sdk::FaceItem> items MEMBER items)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QList<FaceItem> items{};
    bool operator==(const DelFacesCondition&) const = default;
};

// A face the device detected, live or from its records.
struct VMS_CLIENT_SDK_EXPORT FaceDetectRecordInfo
{
    Q_GADGET
    Q_PROPERTY(QString serialNum MEMBER serialNum)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString company MEMBER company)
    Q_PROPERTY(QString department MEMBER department)
    Q_PROPERTY(QString position MEMBER position)
    Q_PROPERTY(QString detectTime MEMBER detectTime)
    Q_PROPERTY(unsigned int recordId MEMBER recordId)
    Q_PROPERTY(int similarity MEMBER similarity)
    Q_PROPERTY(double temperature MEMBER temperature)
    Q_PROPERTY(int temperatureState MEMBER temperatureState)
    Q_PROPERTY(int maskState MEMBER maskState)
    Q_PROPERTY(QByteArray snapImage MEMBER snapImage)
    Q_PROPERTY(QByteArray faceImage MEMBER faceImage)
public:
    QString serialNum{}; // of the matching library face
    QString name{};
    QString company{};
    QString department{};
    QString position{};
    QString detectTime{};
    unsigned int recordId = 0;
    int similarity = 0;
    double temperature = 0.0;
    int temperatureState = 0; // 2 and 3: outside the normal range
    int maskState = 0;        // 2: no mask
    QByteArray snapImage{};   // the whole scene
    QByteArray faceImage{};
    bool operator==(const FaceDetectRecordInfo&) const = default;
};

using FaceDetectRecordList = QList<FaceDetectRecordInfo>;

struct VMS_CLIENT_SDK_EXPORT GetFaceDetectRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(unsigned int pageNum MEMBER pageNum)
    Q_PROPERTY(unsigned int pageSize MEMBER pageSize)
    Q_PROPERTY(QString beginTime MEMBER beginTime)
    Q_PROPERTY(QString endTime MEMBER endTime)
public:
    QString requestId{};
    ChannelId channelId{};
    unsigned int pageNum = 0;
    unsigned int pageSize = 0;
    QString beginTime{};
    QString endTime{};
    bool operator==(const GetFaceDetectRecordsCondition&) const = default;
};

// Running counts of a temperature-screening channel.
struct VMS_CLIENT_SDK_EXPORT FaceCountInfo
{
    Q_GADGET
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(unsigned int faceCount MEMBER faceCount)
    Q_PROPERTY(unsigned int abnormalTemperatureCount MEMBER abnormalTemperatureCount)
    Q_PROPERTY(unsigned int withoutMaskCount MEMBER withoutMaskCount)
public:
    ChannelId channelId{};
    unsigned int faceCount = 0;
    unsigned int abnormalTemperatureCount = 0;
    unsigned int withoutMaskCount = 0;
    bool operator==(const FaceCountInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT FaceGroupInfo
{
    Q_GADGET
    Q_PROPERTY(int id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool enable MEMBER enable)
public:
    int id = 0;
    QString name{};
    bool enable = false;
    bool operator==(const FaceGroupInfo&) const = default;
};

using FaceGroupList = QList<FaceGroupInfo>;

// The device gives the new groups their ids; the id of each entry is ignored.
struct VMS_CLIENT_SDK_EXPORT AddFaceGroupsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QList<vms_sdk::FaceGroupInfo> groups MEMBER groups)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QList<FaceGroupInfo> groups{};
    bool operator==(const AddFaceGroupsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT EditFaceGroupsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QList<vms_sdk::FaceGroupInfo> groups MEMBER groups)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QList<FaceGroupInfo> groups{};
    bool operator==(const EditFaceGroupsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT DeleteFaceGroupsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(QList<int> groupIds MEMBER groupIds)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    QList<int> groupIds{};
    bool operator==(const DeleteFaceGroupsCondition&) const = default;
};

// A face capture record or a face recognition record; each kind fills its own fields.
struct VMS_CLIENT_SDK_EXPORT FaceRecRecordInfo
{
    Q_GADGET
    Q_PROPERTY(int channelIndex MEMBER channelIndex)
    Q_PROPERTY(QDateTime time MEMBER time)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(int gender MEMBER gender)
    Q_PROPERTY(int hair MEMBER hair)
    Q_PROPERTY(int eyeglass MEMBER eyeglass)
    Q_PROPERTY(int mask MEMBER mask)
    Q_PROPERTY(int beard MEMBER beard)
    Q_PROPERTY(int hat MEMBER hat)
    Q_PROPERTY(int expression MEMBER expression)
    Q_PROPERTY(QString objPicName MEMBER objPicName)
    Q_PROPERTY(QString frmPicName MEMBER frmPicName)
    Q_PROPERTY(int index MEMBER index)
    Q_PROPERTY(QString classification MEMBER classification)
    Q_PROPERTY(QString faceId MEMBER faceId)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(int similarity MEMBER similarity)
    Q_PROPERTY(QString picPath MEMBER picPath)
    Q_PROPERTY(QString picFullPath MEMBER picFullPath)
    Q_PROPERTY(int groupId MEMBER groupId)
public:
    int channelIndex = 0;
    QDateTime time{};
    int age = 0;
    int gender = 0;
    int hair = 0;
    int eyeglass = 0;
    int mask = 0;
    int beard = 0;
    int hat = 0;
    int expression = 0;
    QString objPicName{}; // the face
    QString frmPicName{}; // the whole frame
    int index = 0;
    QString classification{};
    QString faceId{};
    QString name{};
    int similarity = 0;
    QString picPath{};
    QString picFullPath{};
    int groupId = 0;
    bool operator==(const FaceRecRecordInfo&) const = default;
};

using FaceRecRecordList = QList<FaceRecRecordInfo>;

// Face capture records (captureRecords set) or face recognition records; age applies to
// capture records, keyword, groupId and classification to recognition records.
struct VMS_CLIENT_SDK_EXPORT GetFaceRecRecordsCondition
{
    Q_GADGET
    Q_PROPERTY(QString requestId MEMBER requestId)
    Q_PROPERTY(vms_sdk::ChannelId channelId MEMBER channelId)
    Q_PROPERTY(QString package MEMBER package)
    Q_PROPERTY(bool captureRecords MEMBER captureRecords)
    Q_PROPERTY(QDateTime startTime MEMBER startTime)
    Q_PROPERTY(QDateTime endTime MEMBER endTime)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(int gender MEMBER gender)
    Q_PROPERTY(QString keyword MEMBER keyword)
    Q_PROPERTY(int groupId MEMBER groupId)
    Q_PROPERTY(QString classification MEMBER classification)
    Q_PROPERTY(int pageNum MEMBER pageNum)
    Q_PROPERTY(int pageSize MEMBER pageSize)
public:
    QString requestId{};
    ChannelId channelId{};
    QString package{};
    bool captureRecords = false;
    QDateTime startTime{};
    QDateTime endTime{};
    int age = 0;
    int gender = 0;
    QString keyword{};
    int groupId = 0;
    QString classification{};
    int pageNum = 0;
    int pageSize = 0;
    bool operator==(const GetFaceRecRecordsCondition&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT FacesModelingStatusInfo
{
    Q_GADGET
    Q_PROPERTY(int totalCnt MEMBER totalCnt)
    Q_PROPERTY(int modeledCnt MEMBER modeledCnt)
    Q_PROPERTY(int modelingFailedCnt MEMBER modelingFailedCnt)
    Q_PROPERTY(int pendingCnt MEMBER pendingCnt)
public:
    int totalCnt = 0;
    int modeledCnt = 0;
    int modelingFailedCnt = 0;
    int pendingCnt = 0;
    bool operator==(const FacesModelingStatusInfo&) const = default;
};

struct VMS_CLIENT_SDK_EXPORT FaceLibraryImportProgress
{
    Q_GADGET
    Q_PROPERTY(int totalCount MEMBER totalCount)
    Q_PROPERTY(int successCount MEMBER successCount)
    Q_PROPERTY(int failedCount MEMBER failedCount)
    Q_PROPERTY(QString failedPersonPath MEMBER failedPersonPath)
public:
    int totalCount = 0;
    int successCount = 0;
    int failedCount = 0;
    QString failedPersonPath{}; // where the device lists the persons it could not import
    bool operator==(const FaceLibraryImportProgress&) const = default;
};

} // namespace vms_sdk

Q_DECLARE_METATYPE(vms_sdk::FaceInfo)
Q_DECLARE_METATYPE(vms_sdk::ModifyFaceCondition)
Q_DECLARE_METATYPE(vms_sdk::GetFacesCondition)
Q_DECLARE_METATYPE(vms_sdk::DelFaceCondition)
Q_DECLARE_METATYPE(vms_sdk::FaceItem)
Q_DECLARE_METATYPE(vms_sdk::DelFacesCondition)
Q_DECLARE_METATYPE(vms_sdk::FaceDetectRecordInfo)
Q_DECLARE_METATYPE(vms_sdk::GetFaceDetectRecordsCondition)
Q_DECLARE_METATYPE(vms_sdk::FaceCountInfo)
Q_DECLARE_METATYPE(vms_sdk::FaceGroupInfo)
Q_DECLARE_METATYPE(vms_sdk::AddFaceGroupsCondition)
Q_DECLARE_METATYPE(vms_sdk::EditFaceGroupsCondition)
Q_DECLARE_METATYPE(vms_sdk::DeleteFaceGroupsCondition)
Q_DECLARE_METATYPE(vms_sdk::FaceRecRecordInfo)
Q_DECLARE_METATYPE(vms_sdk::GetFaceRecRecordsCondition)
Q_DECLARE_METATYPE(vms_sdk::FacesModelingStatusInfo)
Q_DECLARE_METATYPE(vms_sdk::FaceLibraryImportProgress)

#endif // VMS_SDK_FACE_RECORDS_H
