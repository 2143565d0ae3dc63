// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>

#include <cstdint>

namespace vms_dgw_sim {

// A picture in planar YUV 4:2:0, as an encoder takes it: a full-size luma plane, then the two
// chroma planes at half the width and height. Rows are `stride` bytes apart.
struct YuvPlanes
{
    uint8_t* data[3] = {};
    int stride[3] = {};
    int width = 0;
    int height = 0;
};

// What a simulated camera sees: a background in colours of its own (derived from the device id
// and channel, so that two cameras never look alike), a block that slides across the middle of
// the picture with the media time, the camera's name at the top and a time at the bottom. Drawn
// straight into the planes, with a small built-in font scaled to the picture.
class TestPicture
{
public:
    TestPicture(const QString& devId, quint32 channel, const QString& name);

    // Draws the picture at media time `timeMs` (the block's place) with `time` as its text.
    void draw(const YuvPlanes& planes, qint64 timeMs, const QString& time) const;

    // The time the block takes to cross the picture once.
    static constexpr int CrossingMs = 4000;

private:
    QString m_name;
    uint8_t m_u;
    uint8_t m_v;
};

} // namespace vms_dgw_sim
