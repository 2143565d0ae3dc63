#!/usr/bin/env python3
# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers
"""Writes the seed corpora of the fuzzers into fuzz/corpus/<harness>/.

Every seed is a literal frame or document as the gateway sends it: the wire messages are
encoded by hand below (protobuf's varint and length-delimited fields), so the seeds do not
depend on the code they feed. Run it again after changing a seed; the files are committed.
"""
import base64
import json
import pathlib
import shutil
import struct

ROOT = pathlib.Path(__file__).resolve().parent
CORPUS = ROOT / "corpus"


def varint(n):
    n &= (1 << 64) - 1
    out = bytearray()
    while True:
        byte = n & 0x7F
        n >>= 7
        out.append(byte | (0x80 if n else 0))
        if not n:
            return bytes(out)


def field(number, value):
    """One protobuf field: int -> varint, float -> double, str/bytes -> length-delimited."""
    if isinstance(value, bool) or isinstance(value, int):
        return varint(number << 3) + varint(int(value))
    if isinstance(value, float):
        return varint(number << 3 | 1) + struct.pack("<d", value)
    data = value.encode() if isinstance(value, str) else value
    return varint(number << 3 | 2) + varint(len(data)) + data


def message(*fields):
    return b"".join(field(n, v) for n, v in fields)


def frame(msg_type, payload):
    """The channel's frame: length (payload + 1), type, payload size (0xFFFFFFFF: null)."""
    if payload is None:
        return struct.pack(">qbI", 1, msg_type, 0xFFFFFFFF)
    return struct.pack(">qbI", len(payload) + 1, msg_type, len(payload)) + payload


CHANNEL = message((1, "cam-1"), (2, 1))
ERROR = message((1, 17), (2, "busy"))
FACE_RECORD = message((1, "F-1"), (2, "Ann"), (6, "2024-03-01 08:30:00"), (8, 92), (9, 38.1),
                      (10, 2), (11, 2))
ALARM = message((1, "alarm-1"), (2, CHANNEL), (3, CHANNEL), (4, "door"), (5, "2024-03-01 08:30:00"),
                (6, b"\xff\xd8jpeg"), (7, "motion"), (8, 1), (9, "Motion"), (10, b"detail"))


def envelope(method, code=0, result=None):
    return {"method": method, "error": {"errorcode": code, "message": "ok" if code == 0 else "offline"},
            "result": result if result is not None else {}}


def text(document):
    return json.dumps(document).encode()


JSON_ANSWERS = {
    "calendar": envelope("get_record_date_list", result={"date_list": [1, 0, 1, 2, 1]}),
    "events": envelope("event_get_list", result={"eventCount": 2, "eventList": [
        {"type": 7, "record": True, "startTime": "2024-03-01 08:00:00", "stopTime": "2024-03-01 08:05:00"}]}),
    "plates": envelope("ivp_LPR_get_history", result={"total_cnt": 40, "pageNum": 2, "result_list": [
        {"channelid": 1, "time": "2024-03-01 10:00:00", "plate_num": "AB123", "plate_color": 2}]}),
    "heatmap": envelope("ivp_hm_get_heatmap", result={"width": 64, "height": 48, "bgJpegBase64": "QUI=",
                                                      "heatmapDataBase64": "AQID"}),
    "device_error": envelope("storage_get_info", code=1003),
    "wrapped": envelope("dev_trans_userparam", result={"resp_data": base64.b64encode(text(
        envelope("group_search", result={"groups": [{"id": 3, "name": "staff", "enable": True}]}))).decode()}),
    "unknown": envelope("image_get_param"),
}

SEEDS = {
    # First byte: the seed of the piece sizes; then frames back to back.
    "frame_reader": {
        "hello_init": b"\x07" + frame(3, None) + frame(2, message((1, ERROR), (2, "r"))),
        "empty_and_null": b"\x00" + frame(40, b"") + frame(4, None),
        "three_pushes": b"\x1f" + b"".join(frame(40, message((1, f"cam-{i}"), (2, i % 2))) for i in range(3)),
    },
    # First byte: the message type; then its payload.
    "incoming_dispatch": {
        "init_res": bytes([2]) + message((1, ERROR), (2, "r")),
        "dev_status": bytes([40]) + message((1, "cam-1"), (2, 1)),
        "net_res": bytes([21]) + message((1, ERROR), (2, "r"), (3, message((1, "192.168.1.64"), (2, "255.255.255.0"), (5, True)))),
        "channels": bytes([45]) + message((1, "nvr-1"), (2, message((1, CHANNEL), (2, "door"), (4, 0)))),
        "face_detect": bytes([48]) + message((1, CHANNEL), (2, FACE_RECORD)),
        "alarm": bytes([50]) + ALARM,
        "common_res": bytes([101]) + message((1, "r"), (2, text(JSON_ANSWERS["calendar"]))),
        "garbage": bytes([42]) + b"\x0a\xff\xff",
    },
    # Request id, newline, answer document.
    "json_answer": {name: b"r\n" + text(doc) for name, doc in JSON_ANSWERS.items()}
    | {"not_json": b"r\n{\"method\": \"get_record_date_list\", \"err"},
    # First byte even: a common alarm push; odd: a face detection push.
    "alarm": {
        "common": b"\x00" + ALARM,
        "face_fever": b"\x01" + message((1, CHANNEL), (2, FACE_RECORD)),
        "face_plain": b"\x01" + message((1, CHANNEL), (2, message((1, "F-2"), (10, 1), (11, 1)))),
    },
    # What a stream server writes: media, events and progress in frames.
    "stream": {
        "live": frame(102, b"VMSF" + bytes(60)) + frame(103, message((1, 0))),
        "playback": frame(46, message((1, 1000), (2, 60000))) + frame(47, message((1, "2024-03-01 08:00:00.000")))
        + frame(103, message((1, 3))),
        "cut": frame(102, b"VMSF" + bytes(60))[:30],
    },
    "sim_config": {
        "example_three_cameras": (ROOT.parent / "tools/dgw_sim/examples/three_cameras.json").read_bytes(),
        "example_alarms": (ROOT.parent / "tools/dgw_sim/examples/alarms.json").read_bytes(),
        "faults": text({"idleExitMs": 10000, "faults": {
            "refuseInit": {"code": 4, "message": "no"}, "answerDelayMs": 5, "ignoreTypes": [6],
            "closeAfterMessages": 3, "malformedTypes": [38], "streamCutAfterFrames": 2,
            "methodAnswers": [{"method": "log_get", "answer": "notJson"}]}}),
        "pushes": text({"pushes": [{"type": "devStatus", "devId": "cam-1", "everyMs": 10, "count": 5,
                                    "variants": [{"status": 0}, {"status": 1}]}],
                        "streams": {"frameRate": 0, "frameBytes": 1024}}),
    },
}

for harness, seeds in SEEDS.items():
    folder = CORPUS / harness
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for name, data in seeds.items():
        (folder / name).write_bytes(data)
