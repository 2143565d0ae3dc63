// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "main_window.h"

#include "alarm_panel.h"
#include "device_tree.h"
#include "exercise.h"
#include "gateway_status.h"
#include "meter.h"
#include "playback_panel.h"
#include "ptz_panel.h"
#include "video_grid.h"
#include "video_view.h"

#include <vms_sdk/vms_client_sdk.h>

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QStatusBar>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>

#include <algorithm>

using namespace vms_sdk;

namespace {

const QString ScreenshotJob = QStringLiteral("screenshot");
const QString ExerciseJob = QStringLiteral("exercise");
const QString MeasureJob = QStringLiteral("measure");
// How long the jobs of the command line may take beyond a measurement, from the start.
constexpr int JobsTimeoutMs = 60000;

} // namespace

MainWindow::MainWindow(const Options& options)
    : m_options(options)
    , m_tree(new DeviceTree)
    , m_grid(new VideoGrid)
    , m_ptz(new PtzPanel)
    , m_playback(new PlaybackPanel)
    , m_alarms(new AlarmPanel)
    , m_gatewayStatus(new GatewayStatus(m_tree))
{
    setWindowTitle(tr("VMS viewer"));
    setCentralWidget(m_grid);
    m_grid->setViewCount(options.grid);
    const auto dock = [this](const QString& title, QWidget* widget, Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title, this);
        dock->setObjectName(title);
        dock->setWidget(widget);
        dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
        addDockWidget(area, dock);
        return dock;
    };
    QDockWidget* devices = dock(tr("Devices"), m_tree, Qt::LeftDockWidgetArea);
    QDockWidget* ptz = dock(tr("PTZ"), m_ptz, Qt::RightDockWidgetArea);
    dock(tr("Playback"), m_playback, Qt::RightDockWidgetArea);
    QDockWidget* alarms = dock(tr("Alarms"), m_alarms, Qt::BottomDockWidgetArea);
    // Most of the window for the pictures.
    resizeDocks({devices, ptz}, {180, 330}, Qt::Horizontal);
    resizeDocks({alarms}, {110}, Qt::Vertical);
    statusBar()->addWidget(m_gatewayStatus, 1);

    auto* layouts = new QActionGroup(this);
    QToolBar* toolBar = addToolBar(tr("Layout"));
    toolBar->setObjectName(QStringLiteral("layout"));
    for (const int count : {1, 4, 9}) {
        QAction* action = toolBar->addAction(tr("%1 view(s)", nullptr, count).arg(count));
        action->setCheckable(true);
        action->setChecked(count == options.grid);
        layouts->addAction(action);
        connect(action, &QAction::triggered, this, [this, count] {
            m_grid->setViewCount(count);
            m_grid->fillEmpty(m_tree->onlineChannels());
        });
    }

    connect(m_tree, &DeviceTree::channelActivated, this,
            [this](const ChannelId& channel, const QString& title) {
                m_grid->show({channel, title});
            });
    connect(m_tree, &DeviceTree::channelSelected, this,
            [this](const ChannelId& channel, const QString& title) {
                m_ptz->setChannel(channel);
                m_playback->setChannel(NamedChannel{channel, title});
            });
    // The grid fills itself with the first cameras as they come online.
    connect(m_tree, &DeviceTree::channelsChanged, this, [this] {
        m_grid->fillEmpty(m_tree->onlineChannels());
        onViewSelected(m_grid->selectedView());
    });
    connect(m_grid, &VideoGrid::viewSelected, this, &MainWindow::onViewSelected);
    connect(m_grid, &VideoGrid::pictureShown, this, &MainWindow::onPictureShown);

    if (!options.screenshot.isEmpty())
        m_jobs.append(ScreenshotJob);
    if (options.exercise)
        m_jobs.append(ExerciseJob);
    if (options.measureSeconds > 0)
        m_jobs.append(MeasureJob);
    m_quitWhenDone = options.exercise || options.measureSeconds > 0 || options.quitAfterScreenshot;
    if (m_quitWhenDone) {
        QTimer::singleShot(JobsTimeoutMs + options.measureSeconds * 1000, this, [this] {
            QTextStream(stdout) << "viewer: gave up waiting for: " << m_jobs.join(", ") << Qt::endl;
            finish(1);
        });
    }
}

void MainWindow::start()
{
    auto* signals_ = ClientSignals::instance();
    // Every device the gateway can see is managed: a viewer of the whole site.
    connect(signals_, &ClientSignals::signalPrepareStartDgwSuccess, this,
            [] { search_devs_cmd(); });
    connect(signals_, &ClientSignals::signalSearchedDevsPush, this,
            [this](const QList<DevInfo>& devices) {
                if (m_managed)
                    return;
                m_managed = true;
                m_tree->addDevices(devices);
                set_managed_devs_cmd(devices);
            });
    connect(signals_, &ClientSignals::signalDgwAbnormal, this, [this](DgwAbnormal reason) {
        if (!m_quitWhenDone)
            return;
        QTextStream(stdout) << "viewer: the gateway failed (" << int(reason) << ")" << Qt::endl;
        finish(1);
    });
    // One gateway: the simulator, and most sites, have fewer than a hundred devices.
    m_gatewayStatus->starting(m_options.gateway, 1);
    prepare_start_dgw_req(InitDgwCondition{}, m_options.gateway, 1);
}

void MainWindow::onViewSelected(VideoView* view)
{
    const std::optional<ChannelId> channel = view ? view->channel() : std::nullopt;
    m_ptz->setChannel(channel);
    m_playback->setChannel(channel ? std::optional(NamedChannel{*channel, view->title()})
                                   : std::nullopt);
}

void MainWindow::onPictureShown()
{
    // The jobs start once every view that has a camera to show shows its pictures: a site with
    // fewer cameras than views leaves the rest empty.
    const auto cameras = qsizetype(m_tree->onlineChannels().size());
    const int expected = int(std::min<qsizetype>(m_grid->viewCount(), cameras));
    if (expected == 0 || m_grid->viewsWithPictures() < expected)
        return;
    if (m_jobs.contains(ScreenshotJob))
        takeScreenshot();
    if (m_jobs.contains(ExerciseJob) && !findChild<Exercise*>()) {
        auto* exercise = new Exercise(m_ptz, m_playback, this);
        connect(exercise, &Exercise::finished, this,
                [this](bool passed) { jobDone(ExerciseJob, passed); });
        exercise->start();
    }
    if (m_jobs.contains(MeasureJob) && !findChild<Meter*>()) {
        auto* meter = new Meter(m_grid->views(), m_options.measureSeconds, this);
        connect(meter, &Meter::finished, this, [this] { jobDone(MeasureJob, true); });
        meter->start();
    }
}

void MainWindow::takeScreenshot()
{
    QTextStream out(stdout);
    const bool saved = grab().save(m_options.screenshot, "PNG");
    out << "screenshot: " << m_options.screenshot << (saved ? "" : " could not be written")
        << Qt::endl;
    // Where each view's picture lies in the screenshot, for whoever checks it.
    for (int i = 0; i < m_grid->views().size(); ++i) {
        const VideoView* view = m_grid->views()[i];
        if (!view->hasPicture()) {
            out << "view " << i + 1 << ": empty" << Qt::endl;
            continue;
        }
        const QRect picture = view->pictureRect().translated(view->mapTo(this, QPoint(0, 0)));
        out << "view " << i + 1 << ": " << picture.width() << 'x' << picture.height() << '+'
            << picture.x() << '+' << picture.y() << ' ' << view->title() << Qt::endl;
    }
    jobDone(ScreenshotJob, saved);
}

void MainWindow::jobDone(const QString& job, bool passed)
{
    m_jobs.removeOne(job);
    m_failed = m_failed || !passed;
    if (m_quitWhenDone && (m_jobs.isEmpty() || !passed))
        finish(m_failed ? 1 : 0);
}

void MainWindow::finish(int exitCode)
{
    if (m_finishing)
        return;
    m_finishing = true;
    // Streams end before the library lets go of the gateways.
    for (VideoView* view : m_grid->views())
        view->clear();
    m_playback->setChannel(std::nullopt);
    release_vms_client_sdk();
    // A moment for the gateways' exit messages to leave.
    QTimer::singleShot(100, qApp, [exitCode] { QCoreApplication::exit(exitCode); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    finish(0);
    event->accept();
}
