// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_sdk/json_methods/answer_fields.h"
#include "vms_sdk/json_methods/answer_records.h"

#include <QHash>

namespace vms_sdk::json_methods::answers {

// clang-format off

ImageAdjustSettingInfo imageAdjustSettings(const QJsonObject& result)
{
    using R = ImageAdjustSettingInfo;
    return readRecord<R>(result,
        field("contrast", &R::contrast), field("brightness", &R::brightness),
        field("saturation", &R::saturation), field("sharpen", &R::sharpen),
        field("bEnableMI", &R::bEnableMI), field("bEnableST", &R::bEnableST),
        field("rotate", &R::rotate), field("style", &R::style));
}

ImageSettingInfo imageSettings(const QJsonObject& result)
{
    using R = ImageSettingInfo;
    return readRecord<R>(result,
        field("contrast", &R::contrast), field("brightness", &R::brightness),
        field("saturation", &R::saturation), field("sharpen", &R::sharpen),
        field("fluency", &R::fluency), field("definition", &R::definition),
        field("noise", &R::noise), field("smear", &R::smear),
        field("exposureMode", &R::exposureMode), field("exposureMax", &R::exposureMax),
        field("exposureMin", &R::exposureMin), field("antiflick", &R::antiflick),
        field("scene", &R::scene), field("daynightMode", &R::daynightMode),
        field("dayStart", &R::dayStart), field("dayEnd", &R::dayEnd),
        field("light", &R::light), field("rotate", &R::rotate),
        field("bEnableAWB", &R::bEnableAWB), field("bEnableMI", &R::bEnableMI),
        field("bEnableST", &R::bEnableST), field("bEnableNoC", &R::bEnableNoC),
        field("bEnableWDynamic", &R::bEnableWDynamic),
        field("bAutoLowFrameEn", &R::bAutoLowFrameEn),
        field("bNightOptimization", &R::bNightOptimization),
        field("bDefogging", &R::bDefogging), field("bStarlight", &R::bStarlight),
        field("bAutogain", &R::bAutogain), field("bBLC", &R::bBLC),
        field("bDistortionCorrection", &R::bDistortionCorrection),
        field("bDigitalstabilize", &R::bDigitalstabilize));
}

ImageAbilityInfo imageAbility(const QJsonObject& result)
{
    using R = ImageAbilityInfo;
    return readRecord<R>(result,
        field("bMISup", &R::bMISup), field("bSTSup", &R::bSTSup),
        field("bRotateSup", &R::bRotateSup), field("bStyleSup", &R::bStyleSup),
        field("bExpModeSup", &R::bExpModeSup), field("bWBSup", &R::bWBSup),
        field("bWDSup", &R::bWDSup), field("bHardWDSup", &R::bHardWDSup),
        field("bASTimeSup", &R::bASTimeSup), field("bFluencySup", &R::bFluencySup),
        field("bDefinitionSup", &R::bDefinitionSup), field("bNoiseRdSup", &R::bNoiseRdSup),
        field("bSmearSup", &R::bSmearSup), field("bAutoLowFrameSup", &R::bAutoLowFrameSup),
        field("b3DNoiseRdSup", &R::b3DNoiseRdSup),
        field("b3DNoiseRdValueSup", &R::b3DNoiseRdValueSup),
        field("bDefogSup", &R::bDefogSup), field("bDefogValueSup", &R::bDefogValueSup),
        field("bDistCorSup", &R::bDistCorSup), field("bDistCorValueSup", &R::bDistCorValueSup),
        field("bFaceModeSup", &R::bFaceModeSup), field("bStarSup", &R::bStarSup),
        field("bVlpnIrSup", &R::bVlpnIrSup), field("bSmartSensorSup", &R::bSmartSensorSup),
        field("bCPModeSup", &R::bCPModeSup), field("bWLValSetSup", &R::bWLValSetSup));
}

StreamSettingInfo streamSettingsItem(const QJsonObject& item)
{
    using R = StreamSettingInfo;
    return readRecord<R>(item,
        field("streamid", &R::streamId), field("width", &R::width),
        field("height", &R::height), field("frameRate", &R::frameRate),
        field("bitRate", &R::bitRate), field("gop", &R::gop),
        field("venctype", &R::vencType), field("quality", &R::quality),
        field("smooth", &R::smooth), field("rcMode", &R::rcMode),
        field("smartencode", &R::smartEncode), field("encryptEn", &R::encryptEn));
}

AudioSettingInfo audioSettingsItem(const QJsonObject& item)
{
    using R = AudioSettingInfo;
    return readRecord<R>(item,
        field("channelid", &R::channelIndex), field("bEnable", &R::bEnable),
        field("sampleRate", &R::sampleRate), field("bitWidth", &R::bitWidth),
        field("cntChannel", &R::cntChannel), field("bitRate", &R::bitRate),
        field("encType", &R::encType), field("aiGain", &R::aiGain));
}

PTZAbilityInfo ptzAbility(const QJsonObject& result)
{
    using R = PTZAbilityInfo;
    PTZAbilityInfo ability = readRecord<R>(result,
        field("max_preset", &R::maxPreset), field("max_patrol", &R::maxPatrol),
        field("max_trail", &R::maxTrail), field("max_task", &R::maxTask));
    readValue(result["motor_ability"]["pan_tilt_both"], ability.panTiltBoth);
    readValue(result["ex_ability"]["auto_move"], ability.autoMove);
    const QJsonObject lens = result["lens_ability"].toObject();
    readValue(lens["zoom"], ability.zoom);
    readValue(lens["focus"], ability.focus);
    readValue(lens["iris"], ability.iris);
    return ability;
}

BulletTagPointInfo bulletTagPointItem(const QJsonObject& item)
{
    using R = BulletTagPointInfo;
    return readRecord<R>(item, field("x", &R::x), field("y", &R::y), field("p", &R::p),
                         field("t", &R::t), field("z", &R::z));
}

CalibrationStatusInfo calibrationStatus(const QJsonObject& result)
{
    using R = CalibrationStatusInfo;
    return readRecord<R>(result, field("status", &R::status), field("progress", &R::progress));
}

DevDiskInfo diskItem(const QJsonObject& item)
{
    using R = DevDiskInfo;
    return readRecord<R>(item,
        field("diskNum", &R::diskNum), field("devName", &R::devName), field("sn", &R::sn),
        field("status", &R::status), field("fs", &R::fs), field("sizeMB", &R::sizeMB),
        field("usedMB", &R::usedMB), field("bCurDisk", &R::bCurDisk),
        field("partitionCount", &R::partitionCount), field("curPart", &R::curPart));
}

DevLogInfo logItem(const QJsonObject& item)
{
    using R = DevLogInfo;
    return readRecord<R>(item, field("time", &R::time), field("strlog", &R::strlog));
}

// "supportedLangs" has no place in the record and is left out.
DevSysCfgInfo sysCfg(const QJsonObject& result)
{
    using R = DevSysCfgInfo;
    return readRecord<R>(result,
        field("bDiscoverable", &R::bDiscoverable), field("hostname", &R::hostname),
        field("name", &R::name), field("rebootDay", &R::rebootDay),
        field("rebootHour", &R::rebootHour), field("syslanguage", &R::syslanguage),
        field("encryptEn", &R::encryptEn));
}

// clang-format on

int netMode(const QJsonObject& result)
{
    static const QHash<QString, int> modes{
        {QStringLiteral("eth"), 0}, {QStringLiteral("wifi"), 1}, {QStringLiteral("_4G"), 2},
        {QStringLiteral("ppp"), 3}, {QStringLiteral("ddns"), 4},
    };
    return modes.value(result[QLatin1String("iface")].toString(), 0);
}

} // namespace vms_sdk::json_methods::answers
