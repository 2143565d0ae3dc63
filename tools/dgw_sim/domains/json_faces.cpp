// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
//
// The methods of the applications on a device, which reach it through the transparent
// method: the face application (its groups, its library, its captures and recognitions, its
// import and export), customer statistics by age and gender, and the parking locks.
//
// Groups, library faces and locks are the channel's state. A new face picture is "pending"
// until the library is next read, when it is modelled: a picture that is a JPEG succeeds, any
// other fails. Import and export advance a step on every progress query. Captures and
// recognitions are generated like the analytics records, recognitions from the library.

#include "handler.h"
#include "json_method.h"

namespace vms_dgw_sim {
namespace {

constexpr int modelFailedCode = 3; // the picture holds no face that can be modelled

QList<qint32> integers(const QJsonValue& value)
{
    QList<qint32> list;
    for (const QJsonValue& element : value.toArray())
        list.append(element.toInt());
    return list;
}

QJsonArray integerArray(const QList<qint32>& list)
{
    QJsonArray array;
    for (const qint32 value : list)
        array.append(value);
    return array;
}

FaceGroup* findGroup(ChannelApps& apps, qint32 id)
{
    for (FaceGroup& group : apps.groups) {
        if (group.id == id)
            return &group;
    }
    return nullptr;
}

LibraryFace* findFace(ChannelApps& apps, qint32 index)
{
    for (LibraryFace& face : apps.library) {
        if (face.index == index)
            return &face;
    }
    return nullptr;
}

QJsonObject faceGroups(MethodCall& call, Outcome*)
{
    QJsonArray groups;
    for (const FaceGroup& group : std::as_const(call.channel->apps.groups)) {
        groups.append(QJsonObject{{QStringLiteral("id"), group.id},
                                  {QStringLiteral("name"), group.name},
                                  {QStringLiteral("enable"), group.enabled}});
    }
    return {{QStringLiteral("groups"), groups}};
}

// Checks a group's new name: not empty and not another group's.
Outcome nameGroup(const ChannelApps& apps, qint32 id, const QString& name)
{
    if (name.isEmpty())
        return {InvalidArgument, QStringLiteral("a group needs a name")};
    for (const FaceGroup& group : apps.groups) {
        if (group.id != id && group.name == name)
            return {AlreadyExists, QStringLiteral("a group is named %1 already").arg(name)};
    }
    return {};
}

QJsonObject addGroups(MethodCall& call, Outcome* outcome)
{
    ChannelApps apps = call.channel->apps;
    for (const QJsonValue& entry : call.param.value(QStringLiteral("groups")).toArray()) {
        const QJsonObject group = entry.toObject();
        const QString name = group.value(QStringLiteral("name")).toString();
        *outcome = nameGroup(apps, 0, name);
        if (!outcome->ok())
            return {};
        qint32 id = 1;
        for (const FaceGroup& existing : std::as_const(apps.groups))
            id = qMax(id, existing.id + 1);
        apps.groups.append({id, name, group.value(QStringLiteral("enable")).toInt() != 0});
    }
    call.channel->apps = apps; // all of them or none
    return {};
}

QJsonObject editGroups(MethodCall& call, Outcome* outcome)
{
    ChannelApps apps = call.channel->apps;
    for (const QJsonValue& entry : call.param.value(QStringLiteral("groups")).toArray()) {
        const QJsonObject edit = entry.toObject();
        const qint32 id = edit.value(QStringLiteral("id")).toInt();
        FaceGroup* group = findGroup(apps, id);
        const QString name = edit.value(QStringLiteral("name")).toString();
        *outcome = group ? nameGroup(apps, id, name)
                         : Outcome{NotFound, QStringLiteral("no face group %1").arg(id)};
        if (!outcome->ok())
            return {};
        group->name = name;
        group->enabled = edit.value(QStringLiteral("enable")).toInt() != 0;
    }
    call.channel->apps = apps;
    return {};
}

QJsonObject deleteGroups(MethodCall& call, Outcome* outcome)
{
    ChannelApps& apps = call.channel->apps;
    const QList<qint32> ids = integers(call.param.value(QStringLiteral("id")));
    for (const qint32 id : ids) {
        if (!findGroup(apps, id)) {
            *outcome = {NotFound, QStringLiteral("no face group %1").arg(id)};
            return {};
        }
    }
    eraseIf(apps.groups, [&](const FaceGroup& group) { return ids.contains(group.id); });
    for (LibraryFace& face : apps.library)
        eraseIf(face.groupIds, [&](qint32 id) { return ids.contains(id); });
    return {};
}

// What the library's modelling made of a picture.
QString modelled(const QByteArray& picture)
{
    return picture.startsWith("\xff\xd8") ? QStringLiteral("pending") : QStringLiteral("failed");
}

// Reads the fields rcglib_add and rcglib_mod share into `face`.
Outcome readFace(const MethodCall& call, const ChannelApps& apps, LibraryFace* face)
{
    face->name = call.text("name");
    face->faceId = call.text("face_id");
    face->gender = call.integer("gender");
    face->birthdate = call.text("birthdate");
    face->classification = call.text("classification");
    face->startTime = call.text("start_time");
    face->endTime = call.text("end_time");
    face->groupIds = integers(call.param.value(QStringLiteral("group_id")));
    if (face->name.isEmpty())
        return {InvalidArgument, QStringLiteral("a face needs a name")};
    for (const qint32 id : std::as_const(face->groupIds)) {
        if (!std::any_of(apps.groups.begin(), apps.groups.end(),
                         [&](const FaceGroup& group) { return group.id == id; }))
            return {NotFound, QStringLiteral("no face group %1").arg(id)};
    }
    for (const LibraryFace& other : apps.library) {
        if (other.index != face->index && !face->faceId.isEmpty() && other.faceId == face->faceId)
            return {AlreadyExists, QStringLiteral("face id %1 is taken").arg(face->faceId)};
    }
    return {};
}

QJsonObject addFace(MethodCall& call, Outcome* outcome)
{
    ChannelApps& apps = call.channel->apps;
    LibraryFace face;
    face.index = apps.nextFaceIndex;
    *outcome = readFace(call, apps, &face);
    const QJsonArray pictures = call.param.value(QStringLiteral("jpeg_list")).toArray();
    if (outcome->ok() && pictures.isEmpty())
        *outcome = {InvalidArgument, QStringLiteral("a face needs a picture")};
    if (!outcome->ok())
        return {};
    face.jpegUuid = QStringLiteral("jpeg-%1-1").arg(face.index);
    face.modelingStatus = modelled(QByteArray::fromBase64(pictures.first().toString().toLatin1()));
    apps.library.append(face);
    ++apps.nextFaceIndex;
    return {};
}

QJsonObject editFace(MethodCall& call, Outcome* outcome)
{
    ChannelApps& apps = call.channel->apps;
    LibraryFace* face = findFace(apps, call.integer("index"));
    if (!face) {
        *outcome = {NotFound, QStringLiteral("no face %1").arg(call.integer("index"))};
        return {};
    }
    LibraryFace edited = *face;
    *outcome = readFace(call, apps, &edited);
    if (!outcome->ok())
        return {};
    // A picture the device has already is named by its id; a new one comes in Base64.
    for (const QJsonValue& entry : call.param.value(QStringLiteral("jpeg_list")).toArray()) {
        const QJsonObject picture = entry.toObject();
        const QString base64 = picture.value(QStringLiteral("base64")).toString();
        if (!base64.isEmpty()) {
            edited.jpegUuid = QStringLiteral("jpeg-%1-%2")
                                  .arg(edited.index)
                                  .arg(edited.jpegUuid.section(QLatin1Char('-'), 2).toInt() + 1);
            edited.modelingStatus = modelled(QByteArray::fromBase64(base64.toLatin1()));
        }
    }
    *face = edited;
    return {};
}

QJsonObject deleteFaces(MethodCall& call, Outcome* outcome)
{
    ChannelApps& apps = call.channel->apps;
    const QJsonArray items = call.param.value(QStringLiteral("rcglib_items")).toArray();
    for (const QJsonValue& item : items) {
        const qint32 index = item.toObject().value(QStringLiteral("index")).toInt();
        if (!findFace(apps, index)) {
            *outcome = {NotFound, QStringLiteral("no face %1").arg(index)};
            return {};
        }
    }
    // Taken out of the groups named; out of the library once in none (or when none is named).
    for (const QJsonValue& item : items) {
        const qint32 index = item.toObject().value(QStringLiteral("index")).toInt();
        const QList<qint32> groups = integers(item.toObject().value(QStringLiteral("group_id")));
        LibraryFace* face = findFace(apps, index);
        eraseIf(face->groupIds, [&](qint32 id) { return groups.contains(id); });
        if (groups.isEmpty() || face->groupIds.isEmpty())
            eraseIf(apps.library, [&](const LibraryFace& f) { return f.index == index; });
    }
    return {};
}

void modelPending(ChannelApps& apps)
{
    for (LibraryFace& face : apps.library) {
        if (face.modelingStatus == QLatin1String("pending"))
            face.modelingStatus = QStringLiteral("success");
    }
}

bool matches(const LibraryFace& face, const MethodCall& call)
{
    const QString keyword = call.text("keyword");
    const QList<qint32> groups = integers(call.param.value(QStringLiteral("group_id")));
    const qint32 gender = call.integer("gender");
    return (keyword.isEmpty() || face.name.contains(keyword, Qt::CaseInsensitive) ||
            face.faceId.contains(keyword, Qt::CaseInsensitive)) &&
           (groups.isEmpty() ||
            std::any_of(groups.begin(), groups.end(),
                        [&](qint32 id) { return face.groupIds.contains(id); })) &&
           (gender == 0 || face.gender == gender) &&
           (call.text("classification").isEmpty() ||
            face.classification == call.text("classification")) &&
           (call.text("modeling_status").isEmpty() ||
            face.modelingStatus == call.text("modeling_status"));
}

QJsonObject libraryFaces(MethodCall& call, Outcome*)
{
    ChannelApps& apps = call.channel->apps;
    QList<LibraryFace> found;
    for (const LibraryFace& face : std::as_const(apps.library)) {
        if (matches(face, call))
            found.append(face);
    }
    const qint32 page = call.integer("page_num", 1);
    const auto entry = [&](int i) {
        const LibraryFace& face = found.at(i);
        return QJsonObject{{QStringLiteral("index"), face.index},
                           {QStringLiteral("name"), face.name},
                           {QStringLiteral("face_id"), face.faceId},
                           {QStringLiteral("gender"), face.gender},
                           {QStringLiteral("birthdate"), face.birthdate},
                           {QStringLiteral("start_time"), face.startTime},
                           {QStringLiteral("end_time"), face.endTime},
                           {QStringLiteral("classification"), face.classification},
                           {QStringLiteral("modeling_status"), face.modelingStatus},
                           {QStringLiteral("modeling_errorcode"),
                            face.modelingStatus == QLatin1String("failed") ? modelFailedCode : 0},
                           {QStringLiteral("jpeg_uuid"), face.jpegUuid},
                           {QStringLiteral("group_id"), integerArray(face.groupIds)}};
    };
    const QJsonObject result{
        {QStringLiteral("page_num"), page},
        {QStringLiteral("total_size"), found.size()},
        {QStringLiteral("list"), pageOf(found.size(), page, call.integer("page_size", 20), entry)}};
    modelPending(apps);
    return result;
}

QJsonObject modelingStatus(MethodCall& call, Outcome*)
{
    ChannelApps& apps = call.channel->apps;
    const auto count = [&](const char* status) {
        return int(
            std::count_if(apps.library.begin(), apps.library.end(), [&](const LibraryFace& face) {
                return face.modelingStatus == QLatin1String(status);
            }));
    };
    const QJsonObject result{{QStringLiteral("total_cnt"), apps.library.size()},
                             {QStringLiteral("modeled_cnt"), count("success")},
                             {QStringLiteral("modeling_failed_cnt"), count("failed")},
                             {QStringLiteral("pending_cnt"), count("pending")}};
    modelPending(apps);
    return result;
}

QJsonObject startImport(MethodCall& call, Outcome*)
{
    call.channel->apps.import = {true, 0};
    return {};
}

// An import of 20 persons, five more on every query; every tenth cannot be modelled.
QJsonObject importProgress(MethodCall& call, Outcome*)
{
    constexpr int persons = 20;
    Progress& progress = call.channel->apps.import;
    const int done = progress.started ? qMin(persons, ++progress.asked * 5) : 0;
    const int failed = done / 10;
    return {{QStringLiteral("total_count"), progress.started ? persons : 0},
            {QStringLiteral("success_count"), done - failed},
            {QStringLiteral("failed_count"), failed},
            {QStringLiteral("failed_person_path"),
             failed ? QStringLiteral("/mnt/sd/facelib/import_failed.txt") : QString()}};
}

QJsonObject startExport(MethodCall& call, Outcome*)
{
    call.channel->apps.exportJob = {true, 0};
    return {};
}

QJsonObject exportProgress(MethodCall& call, Outcome*)
{
    Progress& progress = call.channel->apps.exportJob;
    const int percent = progress.started ? qMin(100, ++progress.asked * 25) : 0;
    return {{QStringLiteral("progress"), percent},
            {QStringLiteral("filename"), percent == 100
                                             ? QStringLiteral("/mnt/sd/facelib/facelib_%1.zip")
                                                   .arg(call.channel->apps.library.size())
                                             : QString()}};
}

// Faces the camera caught, one every eventMinutes, with what the analytics made of them.
QJsonObject faceCaptures(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    const qint32 gender = call.integer("gender");
    QList<qint64> times;
    for (const qint64 at : recordTimes(range, qint64(call.device->eventMinutes) * 60)) {
        if (gender == 0 || 1 + scatter(at, 40, 2) == gender)
            times.append(at);
    }
    const qint32 page = call.integer("page_num", 1);
    const auto capture = [&](int i) {
        const qint64 at = times.at(i);
        const QString stamp = deviceTimeText(at, QStringLiteral("yyyyMMddhhmmss"));
        return QJsonObject{
            {QStringLiteral("channelid"), qint64(call.channel->index)},
            {QStringLiteral("time"), deviceTimeText(at)},
            {QStringLiteral("age"), 8 + scatter(at, 41, 60)},
            {QStringLiteral("gender"), 1 + scatter(at, 40, 2)},
            {QStringLiteral("hair"), scatter(at, 42, 3)},
            {QStringLiteral("eyeglass"), scatter(at, 43, 2)},
            {QStringLiteral("mask"), scatter(at, 44, 2)},
            {QStringLiteral("beard"), scatter(at, 45, 2)},
            {QStringLiteral("hat"), scatter(at, 46, 2)},
            {QStringLiteral("expression"), scatter(at, 47, 4)},
            {QStringLiteral("obj_picName"), QStringLiteral("/mnt/sd/face/%1_face.jpg").arg(stamp)},
            {QStringLiteral("frm_picName"),
             QStringLiteral("/mnt/sd/face/%1_frame.jpg").arg(stamp)}};
    };
    return {{QStringLiteral("page_num"), page},
            {QStringLiteral("total_cnt"), times.size()},
            {QStringLiteral("face_capture_list"),
             pageOf(times.size(), page, call.integer("page_size", 20), capture)}};
}

// Library faces the camera recognised, one every eventMinutes, in turn.
QJsonObject recognitions(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    const QList<LibraryFace>& library = call.channel->apps.library;
    QList<QPair<qint64, LibraryFace>> found;
    for (const qint64 at : recordTimes(range, qint64(call.device->eventMinutes) * 60)) {
        if (library.isEmpty())
            break;
        const LibraryFace& face = library.at(scatter(at, 50, library.size()));
        const qint32 group = call.integer("group_id");
        if (matches(face, call) && (group == 0 || face.groupIds.contains(group)))
            found.append({at, face});
    }
    const qint32 page = call.integer("page_num", 1);
    const auto recognition = [&](int i) {
        const auto& [at, face] = found.at(i);
        const QString path = QStringLiteral("/mnt/sd/caplib/%1.jpg")
                                 .arg(deviceTimeText(at, QStringLiteral("yyyyMMddhhmmss")));
        return QJsonObject{
            {QStringLiteral("index"), face.index},
            {QStringLiteral("cap_time"), deviceTimeText(at)},
            {QStringLiteral("gender"), face.gender},
            {QStringLiteral("classification"), face.classification},
            {QStringLiteral("face_id"), face.faceId},
            {QStringLiteral("name"), face.name},
            {QStringLiteral("similarity"), 80 + scatter(at, 51, 20)},
            {QStringLiteral("pic_path"), path},
            {QStringLiteral("pic_full_path"), QString(path).replace(".jpg", "_full.jpg")},
            {QStringLiteral("group_id"), face.groupIds.isEmpty() ? 0 : face.groupIds.first()}};
    };
    return {{QStringLiteral("page_num"), page},
            {QStringLiteral("total_size"), found.size()},
            {QStringLiteral("list"),
             pageOf(found.size(), page, call.integer("page_size", 20), recognition)}};
}

QJsonObject customerGroups(MethodCall& call, Outcome* outcome)
{
    TimeRange range;
    *outcome = readPeriod(call, "start_time", "end_time", &range);
    QJsonArray list;
    for (const TimeRange& period : countPeriods(range, call.text("count_type"))) {
        const int total = visitors(period, 60) / 2;
        const int male = total * (45 + scatter(period.begin, 61, 10)) / 100;
        const int child = total / 10;
        const int juvenile = total / 8;
        const int youth = total * 3 / 10;
        const int senile = total / 8;
        list.append(
            QJsonObject{{QStringLiteral("total"), total},
                        {QStringLiteral("male"), male},
                        {QStringLiteral("female"), total - male},
                        {QStringLiteral("child_num"), child},
                        {QStringLiteral("juvenile_num"), juvenile},
                        {QStringLiteral("youth_num"), youth},
                        {QStringLiteral("midlife_num"), total - child - juvenile - youth - senile},
                        {QStringLiteral("senile_num"), senile}});
    }
    return {{QStringLiteral("face_count_list"), list}};
}

QJsonObject parkingLocks(MethodCall& call, Outcome*)
{
    QJsonArray list;
    for (const ParkingLock& lock : std::as_const(call.channel->apps.locks)) {
        list.append(QJsonObject{{QStringLiteral("lock_id"), lock.lockId},
                                {QStringLiteral("status"), lock.status},
                                {QStringLiteral("region_name"), lock.regionName},
                                {QStringLiteral("parking_id"), lock.parkingId}});
    }
    return {{QStringLiteral("lock_list"), list}};
}

QJsonObject controlLock(MethodCall& call, Outcome* outcome)
{
    const qint32 status = call.integer("status", -1);
    for (ParkingLock& lock : call.channel->apps.locks) {
        if (lock.lockId != call.text("lock_id"))
            continue;
        if (status == 0 || status == 1)
            lock.status = status;
        else
            *outcome = {InvalidArgument, QStringLiteral("a lock is put down (0) or up (1)")};
        return {};
    }
    *outcome = {NotFound, QStringLiteral("no parking lock %1").arg(call.text("lock_id"))};
    return {};
}

} // namespace

MethodRows applicationMethods()
{
    return {
        {"intelligence_face_count_get_history_list", customerGroups},
        {"intelligence_face_capture_get_history_list", faceCaptures},
        {"caplib_search", recognitions},
        {"get_ground_lock_list", parkingLocks},
        {"ground_lock_control", controlLock},
        {"group_search", faceGroups},
        {"group_add", addGroups},
        {"group_del", deleteGroups},
        {"group_mod", editGroups},
        {"rcglib_search", libraryFaces},
        {"rcglib_add", addFace},
        {"rcglib_mod", editFace},
        {"rcglib_del", deleteFaces},
        {"rcglib_statistics", modelingStatus},
        {"rcglib_import", startImport},
        {"rcglib_import_get_progress", importProgress},
        {"rcglib_export", startExport},
        {"rcglib_export_get_progress", exportProgress},
    };
}

} // namespace vms_dgw_sim
