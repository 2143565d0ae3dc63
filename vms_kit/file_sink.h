// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <spdlog/details/file_helper.h>
#include <spdlog/details/null_mutex.h>
#include <spdlog/sinks/base_sink.h>

namespace vms_kit {

// The log file's sink: its formatter puts each line straight behind the lines before it in
// one buffer, which goes to the file once it holds a few dozen KiB, and whenever the logger
// flushes (an error line, the flusher's tick, the release). A line costs no copy of its own
// and no call into the C library's stream; the file sees one large write instead of one per
// few lines.
//
// It takes no lock: whoever owns the logger serialises every call into it.
class FileSink final : public spdlog::sinks::base_sink<spdlog::details::null_mutex>
{
public:
    // Appends to `path`; throws spdlog::spdlog_ex when it cannot be opened.
    explicit FileSink(const spdlog::filename_t& path);
    // Writes out what is still held.
    ~FileSink() override;

    // What the buffer takes before it goes to the file.
    static constexpr size_t HeldBytes = 32 * 1024;

protected:
    void sink_it_(const spdlog::details::log_msg& msg) override;
    void flush_() override;

private:
    void writeOut();

    spdlog::details::file_helper m_file;
    spdlog::memory_buf_t m_held;
};

} // namespace vms_kit
