// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "test_picture.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace vms_dgw_sim {
namespace {

// A 5 x 7 font: one byte per row, bit 4 the leftmost column. Lower case is drawn as upper case
// and anything else as '?'.
struct Glyph
{
    char character;
    std::array<uint8_t, 7> rows;
};

constexpr Glyph glyphs[] = {
    {' ', {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}},
    {'0', {0x0E, 0x11, 0x13, 0x15, 0x19, 0x11, 0x0E}},
    {'1', {0x04, 0x0C, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'2', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x08, 0x1F}},
    {'3', {0x1F, 0x02, 0x04, 0x02, 0x01, 0x11, 0x0E}},
    {'4', {0x02, 0x06, 0x0A, 0x12, 0x1F, 0x02, 0x02}},
    {'5', {0x1F, 0x10, 0x1E, 0x01, 0x01, 0x11, 0x0E}},
    {'6', {0x06, 0x08, 0x10, 0x1E, 0x11, 0x11, 0x0E}},
    {'7', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x08, 0x08}},
    {'8', {0x0E, 0x11, 0x11, 0x0E, 0x11, 0x11, 0x0E}},
    {'9', {0x0E, 0x11, 0x11, 0x0F, 0x01, 0x02, 0x0C}},
    {'A', {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}},
    {'B', {0x1E, 0x11, 0x11, 0x1E, 0x11, 0x11, 0x1E}},
    {'C', {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}},
    {'D', {0x1C, 0x12, 0x11, 0x11, 0x11, 0x12, 0x1C}},
    {'E', {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}},
    {'F', {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x10}},
    {'G', {0x0E, 0x11, 0x10, 0x17, 0x11, 0x11, 0x0F}},
    {'H', {0x11, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}},
    {'I', {0x0E, 0x04, 0x04, 0x04, 0x04, 0x04, 0x0E}},
    {'J', {0x07, 0x02, 0x02, 0x02, 0x02, 0x12, 0x0C}},
    {'K', {0x11, 0x12, 0x14, 0x18, 0x14, 0x12, 0x11}},
    {'L', {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x1F}},
    {'M', {0x11, 0x1B, 0x15, 0x15, 0x11, 0x11, 0x11}},
    {'N', {0x11, 0x11, 0x19, 0x15, 0x13, 0x11, 0x11}},
    {'O', {0x0E, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}},
    {'P', {0x1E, 0x11, 0x11, 0x1E, 0x10, 0x10, 0x10}},
    {'Q', {0x0E, 0x11, 0x11, 0x11, 0x15, 0x12, 0x0D}},
    {'R', {0x1E, 0x11, 0x11, 0x1E, 0x14, 0x12, 0x11}},
    {'S', {0x0F, 0x10, 0x10, 0x0E, 0x01, 0x01, 0x1E}},
    {'T', {0x1F, 0x04, 0x04, 0x04, 0x04, 0x04, 0x04}},
    {'U', {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}},
    {'V', {0x11, 0x11, 0x11, 0x11, 0x11, 0x0A, 0x04}},
    {'W', {0x11, 0x11, 0x11, 0x15, 0x15, 0x15, 0x0A}},
    {'X', {0x11, 0x11, 0x0A, 0x04, 0x0A, 0x11, 0x11}},
    {'Y', {0x11, 0x11, 0x11, 0x0A, 0x04, 0x04, 0x04}},
    {'Z', {0x1F, 0x01, 0x02, 0x04, 0x08, 0x10, 0x1F}},
    {'-', {0x00, 0x00, 0x00, 0x1F, 0x00, 0x00, 0x00}},
    {'+', {0x00, 0x04, 0x04, 0x1F, 0x04, 0x04, 0x00}},
    {':', {0x00, 0x0C, 0x0C, 0x00, 0x0C, 0x0C, 0x00}},
    {'.', {0x00, 0x00, 0x00, 0x00, 0x00, 0x0C, 0x0C}},
    {'_', {0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1F}},
    {'/', {0x00, 0x01, 0x02, 0x04, 0x08, 0x10, 0x00}},
    {'?', {0x0E, 0x11, 0x01, 0x02, 0x04, 0x00, 0x04}},
};

const Glyph& glyphOf(char character)
{
    const char wanted =
        character >= 'a' && character <= 'z' ? char(character - 'a' + 'A') : character;
    for (const Glyph& glyph : glyphs) {
        if (glyph.character == wanted)
            return glyph;
    }
    return glyphs[std::size(glyphs) - 1];
}

constexpr int GlyphWidth = 5;
constexpr int GlyphHeight = 7;
constexpr int Advance = GlyphWidth + 1;
// Studio-range luma for black and white, and chroma without colour.
constexpr uint8_t Black = 16;
constexpr uint8_t White = 235;
constexpr uint8_t Neutral = 128;

// Fills a rectangle of the picture, clipped to it, in one colour.
void fill(const YuvPlanes& planes, int x, int y, int width, int height, uint8_t luma, uint8_t u,
          uint8_t v)
{
    const int left = std::clamp(x, 0, planes.width);
    const int right = std::clamp(x + width, 0, planes.width);
    const int top = std::clamp(y, 0, planes.height);
    const int bottom = std::clamp(y + height, 0, planes.height);
    if (left >= right || top >= bottom)
        return;
    for (int row = top; row < bottom; ++row)
        std::memset(planes.data[0] + row * planes.stride[0] + left, luma, size_t(right - left));
    const int chromaLeft = left / 2;
    const int chromaRight = (right + 1) / 2;
    for (int row = top / 2; row < (bottom + 1) / 2; ++row) {
        std::memset(planes.data[1] + row * planes.stride[1] + chromaLeft, u,
                    size_t(chromaRight - chromaLeft));
        std::memset(planes.data[2] + row * planes.stride[2] + chromaLeft, v,
                    size_t(chromaRight - chromaLeft));
    }
}

// White text on a black band, its top left corner at (x, y).
void drawText(const YuvPlanes& planes, int x, int y, int scale, const QByteArray& text)
{
    fill(planes, x - scale, y - scale, int(text.size()) * Advance * scale + scale,
         (GlyphHeight + 2) * scale, Black, Neutral, Neutral);
    for (int i = 0; i < text.size(); ++i) {
        const Glyph& glyph = glyphOf(text.at(i));
        const int left = x + i * Advance * scale;
        for (int row = 0; row < GlyphHeight; ++row) {
            for (int column = 0; column < GlyphWidth; ++column) {
                if (glyph.rows[size_t(row)] & (0x10 >> column)) {
                    const int px = left + column * scale;
                    const int py = y + row * scale;
                    for (int dy = 0; dy < scale; ++dy) {
                        if (py + dy < 0 || py + dy >= planes.height)
                            continue;
                        uint8_t* line = planes.data[0] + (py + dy) * planes.stride[0];
                        for (int dx = 0; dx < scale; ++dx) {
                            if (px + dx >= 0 && px + dx < planes.width)
                                line[px + dx] = White;
                        }
                    }
                }
            }
        }
    }
}

// FNV-1a: the same camera keeps its colours from one run to the next.
quint32 colourSeed(const QString& devId, quint32 channel)
{
    quint32 hash = 2166136261u;
    const QByteArray bytes = devId.toUtf8() + '/' + QByteArray::number(channel);
    for (char byte : bytes)
        hash = (hash ^ quint8(byte)) * 16777619u;
    return hash;
}

} // namespace

TestPicture::TestPicture(const QString& devId, quint32 channel, const QString& name)
    : m_name(name)
{
    const double hue = double(colourSeed(devId, channel) % 360) * 3.14159265358979 / 180;
    m_u = uint8_t(Neutral + std::lround(48 * std::cos(hue)));
    m_v = uint8_t(Neutral + std::lround(48 * std::sin(hue)));
}

void TestPicture::draw(const YuvPlanes& planes, qint64 timeMs, const QString& time) const
{
    const int width = planes.width;
    const int height = planes.height;
    // The background darkens from the top to the bottom, in the camera's own colour.
    for (int row = 0; row < height; ++row) {
        std::memset(planes.data[0] + row * planes.stride[0], 180 - 120 * row / height,
                    size_t(width));
    }
    for (int row = 0; row < (height + 1) / 2; ++row) {
        std::memset(planes.data[1] + row * planes.stride[1], m_u, size_t((width + 1) / 2));
        std::memset(planes.data[2] + row * planes.stride[2], m_v, size_t((width + 1) / 2));
    }

    const int side = std::max(2, height / 5);
    const qint64 phase = (timeMs % CrossingMs + CrossingMs) % CrossingMs;
    const int x = int(phase * (width - side) / CrossingMs);
    fill(planes, x, (height - side) / 2, side, side, White, uint8_t(256 - m_u), uint8_t(256 - m_v));

    // Large enough to read, small enough for a name and a time to fit across.
    const int scale = std::max(1, std::min(height / 120, width / (Advance * 26)));
    drawText(planes, 2 * scale, 2 * scale, scale, m_name.toUtf8());
    drawText(planes, 2 * scale, height - (GlyphHeight + 2) * scale, scale, time.toUtf8());
}

} // namespace vms_dgw_sim
