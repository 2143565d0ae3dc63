// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <spdlog/formatter.h>

#include <array>
#include <chrono>
#include <string>

namespace vms_kit {

// Formats a line as the pattern "[%Y-%m-%d %H:%M:%S.%e] [%l] %v" does, in local time, letter
// for letter. The pattern formats each field of the time-stamp anew for every line, which
// costs about as much as the rest of the line; here the part up to the seconds is formatted
// once a second and copied in front of every line of that second, and what stands between
// the milliseconds and the text ("] [info] ") is made once per level.
class LineFormatter final : public spdlog::formatter
{
public:
    LineFormatter();
    void format(const spdlog::details::log_msg& msg, spdlog::memory_buf_t& dest) override;
    std::unique_ptr<spdlog::formatter> clone() const override;

private:
    std::chrono::seconds m_second{-1};
    char m_prefix[32] = {};
    size_t m_prefixSize = 0;
    std::array<std::string, spdlog::level::n_levels> m_levels;
};

} // namespace vms_kit
