// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The face library of a channel and the faces the channel detected.
//
// Pages are numbered from 1 (0 is read as 1); a page size of 0 asks for everything. Detection
// records are generated, one every faceRecordMinutes of the device, aligned to multiples of
// that spacing: the same query always gets the same records, and the people in them are the
// library's, with a stranger now and then.

#include "device_time.h"
#include "exchange.h"

#include "vms_protocol/message_type.h"

#include "vms_message.pb.h"

#include <limits>

namespace vms_dgw_sim {
namespace {

using namespace vms_sdk;

struct Page
{
    qint64 first = 0; // position of the page's first item
    qint64 count = 0;
};

Page page(quint32 number, quint32 size, qint64 total)
{
    if (size == 0)
        return {0, total};
    const qint64 first = qint64(qMax<quint32>(number, 1) - 1) * size;
    return {first, qBound<qint64>(0, total - first, size)};
}

void addFace(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::AddFaceReq, vms_sdk_proto::Response> call;
    if (!call.readForChannel(session, AddFaceReq, payload))
        return;
    const QString serial = text(call.request.serial_num());
    if (call.outcome.ok() && serial.isEmpty())
        call.outcome = {InvalidArgument, QStringLiteral("a face needs a serial number")};
    qint32 index = 1;
    if (call.outcome.ok()) {
        for (const Face& face : std::as_const(call.channel->faces)) {
            if (face.serialNum == serial)
                call.outcome = {AlreadyExists,
                                QStringLiteral("face %1 is in the library").arg(serial)};
            index = qMax(index, face.index + 1);
        }
    }
    if (call.outcome.ok()) {
        Face face;
        face.index = index;
        face.serialNum = serial;
        face.name = text(call.request.name());
        for (const std::string& organization : call.request.organizations())
            face.organizations.append(text(organization));
        face.gender = call.request.attr_6();
        face.age = call.request.attr_7();
        face.libraryId = call.request.attr_8();
        face.faceType = text(call.request.face_type());
        face.validTime = text(call.request.valid_time());
        face.invalidTime = text(call.request.invalid_time());
        face.picture = QByteArray::fromStdString(call.request.attr_12());
        call.channel->faces.append(face);
    }
    call.answer(
        session, AddFaceRes,
        QStringLiteral("add face %1 to %2").arg(serial, channelName(call.request.channel_id())));
}

void getFaces(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::GetFacesReq, vms_sdk_proto::GetFacesRes> call;
    if (!call.readForChannel(session, GetFacesReq, payload))
        return;
    if (call.outcome.ok()) {
        QList<const Face*> matching;
        for (const Face& face : std::as_const(call.channel->faces)) {
            if (call.request.attr_5() == 0 || face.libraryId == qint32(call.request.attr_5()))
                matching.append(&face);
        }
        const Page range = page(call.request.attr_3(), call.request.attr_4(), matching.size());
        for (qint64 i = range.first; i < range.first + range.count; ++i) {
            const Face& face = *matching.at(int(i));
            vms_sdk_proto::FaceInfo* info = call.message.add_faces();
            info->set_attr_1(face.index);
            info->set_serial_num(utf8(face.serialNum));
            info->set_name(utf8(face.name));
            info->set_face_type(utf8(face.faceType));
            info->set_face_url(utf8(QStringLiteral("http://%1:%2/faces/ch%3/%4.jpg")
                                        .arg(call.device->ip)
                                        .arg(call.device->httpPort)
                                        .arg(call.channel->index)
                                        .arg(face.index)));
            info->set_attr_6(face.gender);
            info->set_attr_7(face.age);
            if (call.request.attr_6())
                info->set_attr_8(face.picture.toStdString());
            info->set_valid_time(utf8(face.validTime));
            info->set_invalid_time(utf8(face.invalidTime));
            for (const QString& organization : face.organizations)
                info->add_organizations(utf8(organization));
        }
        call.message.set_attr_4(quint32(matching.size()));
    }
    call.answer(session, GetFacesRes,
                QStringLiteral("faces of %1, page %2 of size %3 (%4 of %5)")
                    .arg(channelName(call.request.channel_id()))
                    .arg(call.request.attr_3())
                    .arg(call.request.attr_4())
                    .arg(call.message.faces_size())
                    .arg(call.message.attr_4()));
}

void deleteFace(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::DelFaceReq, vms_sdk_proto::Response> call;
    if (!call.readForChannel(session, DelFaceReq, payload))
        return;
    const qint32 index = call.request.attr_3();
    if (call.outcome.ok() && eraseIf(call.channel->faces, [index](const Face& face) {
                                 return face.index == index;
                             }) == 0)
        call.outcome = {NotFound, QStringLiteral("no face %1").arg(index)};
    call.answer(session, DelFaceRes,
                QStringLiteral("delete face %1 of %2")
                    .arg(index)
                    .arg(channelName(call.request.channel_id())));
}

// The record of detection slot `slot` (its time divided by the spacing). Everything in it
// follows from the slot, so records do not change between queries.
void fillDetection(const SimChannel& channel, qint64 slot, qint64 seconds,
                   vms_sdk_proto::FaceDetectRecordInfo* record)
{
    const bool stranger = channel.faces.isEmpty() || slot % 4 == 3;
    if (!stranger) {
        const Face& face = channel.faces.at(int(slot % channel.faces.size()));
        record->set_serial_num(utf8(face.serialNum));
        record->set_name(utf8(face.name));
        record->set_company(utf8(face.organizations.value(0)));
        record->set_department(utf8(face.organizations.value(1)));
        record->set_position(utf8(face.organizations.value(2)));
        record->set_attr_8(int(80 + slot % 20));
    }
    record->set_detect_time(utf8(deviceTimeText(seconds)));
    record->set_attr_7(quint32(slot));
    const bool fever = slot % 17 == 0;
    record->set_attr_9(fever ? 37.8 : 36.2 + double(slot % 10) / 10);
    record->set_attr_10(fever ? 2 : 1);
    record->set_attr_11(slot % 5 == 0 ? 2 : 1);
}

void getFaceDetectRecords(Session& session, const QByteArray& payload)
{
    Exchange<vms_sdk_proto::GetFaceDetectRecordsReq, vms_sdk_proto::GetFaceDetectRecordsRes> call;
    if (!call.readForChannel(session, GetFaceDetectRecordsReq, payload))
        return;
    TimeRange span;
    if (call.outcome.ok())
        call.outcome = readTimeRange(call.request, &span);
    if (call.outcome.ok()) {
        const qint64 step = qint64(call.device->faceRecordMinutes) * 60;
        // Both ends count: a record at the very second the range ends is in it.
        const qint64 first = alignDown(span.begin - 1, step) + step;
        const qint64 total = span.end < first ? 0 : (span.end - first) / step + 1;
        const Page range = page(call.request.attr_3(), call.request.attr_4(), total);
        for (qint64 i = range.first; i < range.first + range.count; ++i) {
            const qint64 seconds = first + i * step;
            fillDetection(*call.channel, seconds / step, seconds, call.message.add_records());
        }
        call.message.set_attr_4(quint32(qMin<qint64>(total, std::numeric_limits<quint32>::max())));
    }
    call.answer(session, GetFaceDetectRecordsRes,
                QStringLiteral("face records of %1 from %2 to %3 (%4 of %5)")
                    .arg(channelName(call.request.channel_id()), text(call.request.begin_time()),
                         text(call.request.end_time()))
                    .arg(call.message.records_size())
                    .arg(call.message.attr_4()));
}

void clearFaceCount(Session& session, const QByteArray& payload)
{
    // The device id travels as plain text. The running counts are the pushes' business,
    // which the config file writes out in full, so there is nothing here to reset.
    session.log(
        QStringLiteral("face temperature count of %1 cleared").arg(QString::fromUtf8(payload)));
}

} // namespace

QList<HandlerRow> facesHandlers()
{
    return {
        {AddFaceReq, addFace},
        {GetFacesReq, getFaces},
        {DelFaceReq, deleteFace},
        {GetFaceDetectRecordsReq, getFaceDetectRecords},
        {ClearFaceTemperatureCountCmd, clearFaceCount},
    };
}

} // namespace vms_dgw_sim
