// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "vms_kit/vms_kit.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>

#include <spdlog/cfg/env.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <memory>
#include <mutex>

namespace vms_kit {
namespace {

// The logger is held here rather than in spdlog's registry so that a release racing with a
// log call on another thread can never hand that call a dangling logger.
std::mutex logMutex;
std::shared_ptr<spdlog::logger> logger;

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
        fresh->flush_on(spdlog::level::trace);
        applyEnvironmentLevel(fresh);
    } catch (const spdlog::spdlog_ex&) {
        // A log that cannot be opened must not stop the application: it just stays silent.
        fresh.reset();
    }
    std::lock_guard lock(logMutex);
    logger = std::move(fresh);
}

void release_vms_log()
{
    std::shared_ptr<spdlog::logger> old;
    {
        std::lock_guard lock(logMutex);
        old.swap(logger);
    }
    if (old)
        old->flush();
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
