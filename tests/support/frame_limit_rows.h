// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QByteArray>
#include <QList>

namespace vms_test {

// The payload limit the rows are written for: small, so "at" and "just over" stay short.
constexpr qint64 SmallFrameLimit = 16;

// Bytes a reader limited to SmallFrameLimit gets as the first thing on a connection, and what it
// must say about them (nullptr: a frame it accepts). Written out by hand, not encoded.
struct FrameLimitRow
{
    const char* name;
    QByteArray bytes;
    const char* failure;
};

inline QList<FrameLimitRow> frameLimitRows()
{
    return {
        {"4 GiB payload, consistent length",
         QByteArray("\0\0\0\0\xff\xff\xff\xff"
                    "\x15"
                    "\xff\xff\xff\xfe"
                    "abc",
                    16),
         "payload size 4294967294 over the limit 16"},
        {"almost 4 GiB, length of a null payload",
         QByteArray("\0\0\0\0\0\0\0\1"
                    "\x15"
                    "\xff\xff\xff\xf0"
                    "abc",
                    16),
         "length 1 does not match payload size 4294967280"},
        {"length one short",
         QByteArray("\0\0\0\0\0\0\0\3"
                    "\x15"
                    "\0\0\0\3"
                    "abc",
                    16),
         "length 3 does not match payload size 3"},
        {"null payload with length 2",
         QByteArray("\0\0\0\0\0\0\0\2"
                    "\x03"
                    "\xff\xff\xff\xff",
                    13),
         "length 2 does not match payload size 4294967295"},
        {"negative length",
         QByteArray("\xff\xff\xff\xff\xff\xff\xff\xff"
                    "\x03"
                    "\0\0\0\0",
                    13),
         "length -1 does not match payload size 0"},
        {"just over the limit",
         QByteArray("\0\0\0\0\0\0\0\x12"
                    "\x15"
                    "\0\0\0\x11"
                    "0123456789abcdefg",
                    30),
         "payload size 17 over the limit 16"},
        {"at the limit",
         QByteArray("\0\0\0\0\0\0\0\x11"
                    "\x15"
                    "\0\0\0\x10"
                    "0123456789abcdef",
                    29),
         nullptr},
    };
}

} // namespace vms_test
