// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/file_sink.h"

#include <spdlog/common.h>

namespace vms_kit {

FileSink::FileSink(const spdlog::filename_t& path)
{
    m_file.open(path, false);
    m_held.reserve(HeldBytes + 1024);
}

FileSink::~FileSink()
{
    try {
        writeOut();
    } catch (const spdlog::spdlog_ex&) {
        // Nowhere left to report it: the logger that would is going away.
    }
}

void FileSink::sink_it_(const spdlog::details::log_msg& msg)
{
    formatter_->format(msg, m_held);
    if (m_held.size() >= HeldBytes)
        writeOut();
}

void FileSink::flush_()
{
    writeOut();
    m_file.flush();
}

void FileSink::writeOut()
{
    if (m_held.size() == 0)
        return;
    // Emptied even when the write fails: a file that refuses lines must not make them pile up.
    struct Empty
    {
        spdlog::memory_buf_t& held;
        ~Empty() { held.clear(); }
    } empty{m_held};
    m_file.write(m_held);
}

} // namespace vms_kit
