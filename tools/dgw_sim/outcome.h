// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

namespace vms_dgw_sim {

// The error codes this gateway puts into the Error of an answer. They are its own: the
// library passes any non-zero code on to the application untouched, so they only need to be
// distinct from one another and from the library's own negative codes.
enum ErrorCode : qint32 {
    NoError = 0,
    NoSuchDevice = 1001,  // the id names no device, or one with nothing simulated behind it
    NoSuchChannel = 1002, // the device has no channel of that index
    DeviceOffline = 1003, // unplugged, rebooting, or the gateway cannot log in to it
    NotFound = 1004,      // no such preset, patrol, patrol stop, face or account
    WrongPassword = 1005, // the old password of an account change does not match
    InvalidArgument = 1006,
    AlreadyExists = 1007, // a face with that serial number is in the library already
    Busy = 1008,          // an upgrade is already running
};

// What became of a request: NoError, or a code and a sentence for the answer's Error.
struct Outcome
{
    qint32 code = NoError;
    QString message;

    bool ok() const { return code == NoError; }
};

} // namespace vms_dgw_sim
