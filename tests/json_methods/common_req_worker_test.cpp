// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers

// The JSON method documents the library sends, beyond the one document per method that the
// request-slot table pins: the exact text of a plain and of a transparent document, and the
// values the device reads in one way only.

#include "vms_sdk/json_methods/common_req_worker.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace vms_sdk;
using vms_sdk_proto::CommonReq;

namespace {

QJsonObject parsed(const std::string& json)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(json), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << json;
    EXPECT_TRUE(document.isObject()) << json;
    return document.object();
}

// The document a transparent request carries inside, as text.
std::string innerText(const CommonReq& request)
{
    const QJsonObject outer = parsed(request.req_json());
    const QString base64 = outer.value("param").toObject().value("req_data").toString();
    return QByteArray::fromBase64(base64.toLatin1(), QByteArray::AbortOnBase64DecodingErrors)
        .toStdString();
}

// The "param" object of a plain or transparent request.
QJsonObject paramOf(const CommonReq& request)
{
    QJsonObject document = parsed(request.req_json());
    if (document.value("method").toString() == "dev_trans_userparam")
        document = parsed(innerText(request));
    return document.value("param").toObject();
}

QDateTime at(int y, int mo, int d, int h, int mi, int s)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi, s));
}

class CommonReqWorkerTest : public ::testing::Test
{
protected:
    CommonReqWorker worker{nullptr};
};

// ---------------------------------------------------------------------------------------------
// Documents to the byte

// What each request's document holds is checked end to end in request_slots_test; here the
// text itself, which the device reads as it is.
TEST_F(CommonReqWorkerTest, TransparentParkingLockDocument)
{
    const CtrlParkingLockCondition condition{.requestId = "req-lock",
                                             .channelId = {.devId = "dev-4", .channelIndex = 2},
                                             .package = "com.parking.app",
                                             .lockId = "L-07",
                                             .status = 1};
    const std::string inner = "{\n"
                              "    \"method\": \"ground_lock_control\",\n"
                              "    \"package\": \"com.parking.app\",\n"
                              "    \"param\": {\n"
                              "        \"lock_id\": \"L-07\",\n"
                              "        \"status\": 1\n"
                              "    }\n"
                              "}\n";
    const std::string base64 = QByteArray::fromStdString(inner).toBase64().toStdString();
    const CommonReq request = worker.ctrlParkingLock(condition);
    EXPECT_EQ(request.channel_id().channel_index(), 2u);
    EXPECT_EQ(request.req_json(), "{\n"
                                  "    \"method\": \"dev_trans_userparam\",\n"
                                  "    \"param\": {\n"
                                  "        \"channelid\": 2,\n"
                                  "        \"owner\": \"Tavirnex\",\n"
                                  "        \"req_data\": \"" +
                                      base64 +
                                      "\"\n"
                                      "    }\n"
                                      "}\n");
    EXPECT_EQ(innerText(request), inner);
}

// ---------------------------------------------------------------------------------------------
// Values the device reads in one way only

TEST_F(CommonReqWorkerTest, CountPeriodsAreWords)
{
    // The three counting requests share the words; each one's use of them is pinned with the
    // request's document in request_slots_test.
    const std::vector<std::pair<int, QString>> periods{
        {0, "hour"}, {1, "day"}, {2, "week"}, {3, "month"},    {4, "quarter"},
        {5, "year"}, {6, "day"}, {-1, "day"}, {INT_MIN, "day"}};
    for (const auto& [countType, word] : periods) {
        SCOPED_TRACE(countType);
        GetCustomersCntCondition count{};
        count.countType = countType;
        EXPECT_EQ(paramOf(worker.getCustomersCount(count)).value("count_type"), word);
    }
}

TEST_F(CommonReqWorkerTest, InvalidDatesAreEmptyStrings)
{
    GetAlarmRecordsCondition alarms{};
    alarms.startTime = at(2024, 5, 6, 7, 8, 9);
    const QJsonObject alarmParam = paramOf(worker.getAlarmRecords(alarms));
    EXPECT_EQ(alarmParam.value("startTime"), "2024-05-06 07:08:09");
    EXPECT_EQ(alarmParam.value("endTime"), "");

    ModifyFaceCondition face{};
    face.package = "p";
    const QJsonObject faceParam = paramOf(worker.addFace(face));
    EXPECT_EQ(faceParam.value("birthdate"), "");
    EXPECT_EQ(faceParam.value("start_time"), "");

    face.birthdate = QDate(1990, 7, 4);
    EXPECT_EQ(paramOf(worker.editFace(face)).value("birthdate"), "1990-07-04");

    GetCalendarMaskCondition calendar{};
    calendar.endDate = QDate(2024, 12, 31);
    const QJsonObject calendarParam = paramOf(worker.getVideoRecordingsCalendarMask(calendar));
    EXPECT_EQ(calendarParam.value("start_time"), "");
    EXPECT_EQ(calendarParam.value("end_time"), "20241231235959");

    EXPECT_EQ(paramOf(worker.getDevLogs("r", "d", QDate())).value("date"), "");
    EXPECT_EQ(paramOf(worker.getDevLogs("r", "d", QDate(2024, 1, 9))).value("date"), "2024-01-09");
}

struct PictureCase
{
    const char* name;
    QStringList base64;
    QStringList uuids;
    QJsonArray expected;
};

TEST_F(CommonReqWorkerTest, EditedFacePairsPicturesWithTheirIds)
{
    auto pair = [](const char* base64, const char* uuid) {
        return QJsonObject{{"base64", base64}, {"uuid", uuid}};
    };
    const std::vector<PictureCase> cases{
        {"none", {}, {}, QJsonArray{}},
        {"equal",
         {"AA==", "Ag=="},
         {"u1", "u2"},
         QJsonArray{pair("AA==", "u1"), pair("Ag==", "u2")}},
        {"more pictures",
         {"AA==", "Ag==", "Aw=="},
         {"u1"},
         QJsonArray{pair("AA==", "u1"), pair("Ag==", ""), pair("Aw==", "")}},
        {"more ids", {}, {"u1", "u2"}, QJsonArray{pair("", "u1"), pair("", "u2")}},
    };
    for (const PictureCase& c : cases) {
        SCOPED_TRACE(c.name);
        ModifyFaceCondition face{};
        face.package = "p";
        face.index = 21;
        face.groupIds = {3, 5};
        face.jpegBase64List = c.base64;
        face.jpegUuidList = c.uuids;
        const QJsonObject edited = paramOf(worker.editFace(face));
        EXPECT_EQ(edited.value("jpeg_list"), c.expected);
        EXPECT_EQ(edited.value("index"), 21);
        EXPECT_EQ(edited.value("group_id"), (QJsonArray{3, 5}));

        // A new face sends its pictures as they are, and no ids.
        EXPECT_EQ(paramOf(worker.addFace(face)).value("jpeg_list"),
                  QJsonArray::fromStringList(c.base64));
    }
}

} // namespace
