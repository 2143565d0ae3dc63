// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/line_formatter.h"

#include <spdlog/details/log_msg.h>
#include <spdlog/details/os.h>

#include <cstring>
#include <ctime>

namespace vms_kit {
namespace {

constexpr std::string_view Eol = spdlog::details::os::default_eol;

char* put(char* out, const char* text, size_t size)
{
    std::memcpy(out, text, size);
    return out + size;
}

} // namespace

LineFormatter::LineFormatter()
{
    for (size_t level = 0; level < m_levels.size(); ++level) {
        const spdlog::string_view_t name =
            spdlog::level::to_string_view(spdlog::level::level_enum(level));
        m_levels[level] = "] [" + std::string(name.data(), name.size()) + "] ";
    }
}

void LineFormatter::format(const spdlog::details::log_msg& msg, spdlog::memory_buf_t& dest)
{
    using namespace std::chrono;
    const auto sinceEpoch = msg.time.time_since_epoch();
    const auto second = duration_cast<seconds>(sinceEpoch);
    if (second != m_second || m_prefixSize == 0) {
        const std::tm local = spdlog::details::os::localtime(std::time_t(second.count()));
        m_prefixSize = std::strftime(m_prefix, sizeof m_prefix, "[%Y-%m-%d %H:%M:%S.", &local);
        m_second = second;
    }
    const auto millis = unsigned((duration_cast<milliseconds>(sinceEpoch) - second).count());
    const std::string& level = m_levels[size_t(msg.level)];
    // One growth of the buffer for the whole line rather than one check per piece.
    const size_t start = dest.size();
    dest.resize(start + m_prefixSize + 3 + level.size() + msg.payload.size() + Eol.size());
    char* out = put(dest.data() + start, m_prefix, m_prefixSize);
    out[0] = char('0' + millis / 100);
    out[1] = char('0' + millis / 10 % 10);
    out[2] = char('0' + millis % 10);
    out = put(out + 3, level.data(), level.size());
    out = put(out, msg.payload.data(), msg.payload.size());
    put(out, Eol.data(), Eol.size());
}

std::unique_ptr<spdlog::formatter> LineFormatter::clone() const
{
    return std::make_unique<LineFormatter>();
}

} // namespace vms_kit
