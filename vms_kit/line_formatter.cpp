// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/line_formatter.h"

#include <spdlog/details/log_msg.h>
#include <spdlog/details/os.h>

#include <cstring>
#include <ctime>

namespace vms_kit {
namespace {

char* put(char* out, const char* text, size_t size)
{
    std::memcpy(out, text, size);
    return out + size;
}

} // namespace

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
    const auto millis = int((duration_cast<milliseconds>(sinceEpoch) - second).count());
    const char fraction[] = {char('0' + millis / 100),
                             char('0' + millis / 10 % 10),
                             char('0' + millis % 10),
                             ']',
                             ' ',
                             '['};
    const spdlog::string_view_t level = spdlog::level::to_string_view(msg.level);
    const size_t eolSize = std::strlen(spdlog::details::os::default_eol);
    // One growth of the buffer for the whole line rather than one check per piece.
    const size_t start = dest.size();
    dest.resize(start + m_prefixSize + sizeof fraction + level.size() + 2 + msg.payload.size() +
                eolSize);
    char* out = dest.data() + start;
    out = put(out, m_prefix, m_prefixSize);
    out = put(out, fraction, sizeof fraction);
    out = put(out, level.data(), level.size());
    out = put(out, "] ", 2);
    out = put(out, msg.payload.data(), msg.payload.size());
    put(out, spdlog::details::os::default_eol, eolSize);
}

std::unique_ptr<spdlog::formatter> LineFormatter::clone() const
{
    return std::make_unique<LineFormatter>();
}

} // namespace vms_kit
