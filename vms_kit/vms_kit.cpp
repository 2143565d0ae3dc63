// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/vms_kit.h"

#include "vms_kit/file_sink.h"
#include "vms_kit/line_formatter.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <spdlog/cfg/env.h>
#include <spdlog/spdlog.h>
// Not self-contained: needs the declarations above.
#include <spdlog/details/periodic_worker.h>

#include <memory>
#include <mutex>
#include <utility>

namespace vms_kit {
namespace {

// The logger is held here rather than in spdlog's registry, and every call into it is made
// under logMutex: a release racing with a log call on another thread can never hand that call
// a dangling logger, and the sink needs no lock of its own.
std::mutex logMutex;
std::shared_ptr<spdlog::logger> logger;
// Writes out, once a second, the lines that did not flush the file themselves. Lives from
// init to release, so that no thread of ours outlasts the log. Deliberately not a static
// object: an application that exits without release must not join a thread while the
// process goes down (it can hang where exit runs under the loader's lock).
std::mutex flusherMutex; // apart from logMutex, which the flusher takes when it flushes
spdlog::details::periodic_worker* flusher = nullptr;

void write(spdlog::level::level_enum level, std::string_view line)
{
    std::lock_guard lock(logMutex);
    if (logger)
        logger->log(level, spdlog::string_view_t(line.data(), line.size()));
}

void write(spdlog::level::level_enum level, const QString& text, const QString& tag)
{
    // One buffer per thread, reused: a line costs no allocation once it has grown.
    thread_local std::string line;
    line.clear();
    appendUtf8(line, tag);
    appendUtf8(line, text);
    write(level, line);
}

// Every line is written unless SPDLOG_LEVEL says otherwise ("info", or "vms_client_log=info"
// for this log alone). spdlog's loader only reaches registered loggers, so ours is registered
// for the moment of the loading: kept in the registry, a second init of the same name would
// throw.
void applyEnvironmentLevel(const std::shared_ptr<spdlog::logger>& fresh)
{
    if (qEnvironmentVariableIsEmpty("SPDLOG_LEVEL"))
        return;
    spdlog::register_logger(fresh);
    spdlog::cfg::load_env_levels();
    spdlog::drop(fresh->name());
}

} // namespace

void init_vms_log(const QString& path, const QString& name)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    std::shared_ptr<spdlog::logger> fresh;
    try {
        auto sink = std::make_shared<FileSink>(path.toStdString());
        fresh = std::make_shared<spdlog::logger>(name.toStdString(), std::move(sink));
        fresh->set_formatter(std::make_unique<LineFormatter>());
        fresh->set_level(spdlog::level::trace);
        // A write to the file for every line costs more than everything else the line does;
        // an error is worth it, the rest waits for the flusher or the release.
        fresh->flush_on(spdlog::level::err);
        applyEnvironmentLevel(fresh);
    } catch (const spdlog::spdlog_ex&) {
        // A log that cannot be opened must not stop the application: it just stays silent.
        fresh.reset();
    }
    {
        std::lock_guard lock(logMutex);
        logger = std::move(fresh);
    }
    std::lock_guard lock(flusherMutex);
    if (!flusher)
        flusher = new spdlog::details::periodic_worker(flush_vms_log, std::chrono::seconds(1));
}

void release_vms_log()
{
    std::shared_ptr<spdlog::logger> old;
    {
        std::lock_guard lock(logMutex);
        old.swap(logger);
    }
    {
        // Joins the flusher: past this point nothing of the log is left running.
        std::lock_guard lock(flusherMutex);
        delete std::exchange(flusher, nullptr);
    }
    if (old)
        old->flush();
}

void flush_vms_log()
{
    std::lock_guard lock(logMutex);
    if (logger)
        logger->flush();
}

void log_info(const QString& text, const QString& tag)
{
    write(spdlog::level::info, text, tag);
}

void log_error(const QString& text, const QString& tag)
{
    write(spdlog::level::err, text, tag);
}

void log_trace(const QString& text, const QString& tag)
{
    write(spdlog::level::trace, text, tag);
}

void log_line(LogLevel level, std::string_view utf8Line)
{
    static constexpr spdlog::level::level_enum levels[] = {spdlog::level::trace,
                                                           spdlog::level::info, spdlog::level::err};
    write(levels[int(level)], utf8Line);
}

void appendUtf8(std::string& to, const QString& text)
{
    const QChar* in = text.constData();
    const size_t start = to.size();
    const size_t size = size_t(text.size());
    to.resize(start + size);
    char* out = to.data() + start;
    for (size_t i = 0; i < size; ++i) {
        const char16_t unit = in[i].unicode();
        if (unit >= 0x80) {
            to.resize(start + i);
            const QByteArray rest = QStringView(in + i, qsizetype(size - i)).toUtf8();
            to.append(rest.constData(), size_t(rest.size()));
            return;
        }
        out[i] = char(unit);
    }
}

void xsleep(int milliseconds)
{
    QThread::msleep(static_cast<unsigned long>(qMax(0, milliseconds)));
}

} // namespace vms_kit
