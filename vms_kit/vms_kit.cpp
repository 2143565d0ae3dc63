// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/vms_kit.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <spdlog/cfg/env.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
// Not self-contained: needs the declarations above.
#include <spdlog/details/periodic_worker.h>

#include <memory>
#include <mutex>
#include <utility>

namespace vms_kit {
namespace {

// The logger is held here rather than in spdlog's registry so that a release racing with a
// log call on another thread can never hand that call a dangling logger.
std::mutex logMutex;
std::shared_ptr<spdlog::logger> logger;
// Writes out, once a second, the lines that did not flush the file themselves. Lives from
// init to release, so that no thread of ours outlasts the log. Deliberately not a static
// object: an application that exits without release must not join a thread while the
// process goes down (it can hang where exit runs under the loader's lock).
std::mutex flusherMutex; // apart from logMutex, which the flusher takes when it flushes
spdlog::details::periodic_worker* flusher = nullptr;

std::shared_ptr<spdlog::logger> currentLogger()
{
    std::lock_guard lock(logMutex);
    return logger;
}

void write(spdlog::level::level_enum level, const QString& text, const QString& tag)
{
    if (auto log = currentLogger()) {
        const QByteArray line = (tag + text).toUtf8();
        log->log(level, spdlog::string_view_t(line.constData(), size_t(line.size())));
    }
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
        auto sink = std::make_shared<spdlog::sinks::basic_file_sink_mt>(path.toStdString());
        fresh = std::make_shared<spdlog::logger>(name.toStdString(), std::move(sink));
        fresh->set_pattern("[%Y-%m-%d %H:%M:%S.%e] [%l] %v");
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
    if (auto log = currentLogger())
        log->flush();
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

void xsleep(int milliseconds)
{
    QThread::msleep(static_cast<unsigned long>(qMax(0, milliseconds)));
}

} // namespace vms_kit
