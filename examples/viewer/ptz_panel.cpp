// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "ptz_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace vms_sdk;

namespace {

// The pad: each button moves the camera while it is held down.
struct PadButton
{
    PTZOperation operation;
    const char* label;
    int row;
    int column;
};

constexpr PadButton PadButtons[] = {
    {PTZOperationUpLeft, "↖", 0, 0},  {PTZOperationUp, "↑", 0, 1},
    {PTZOperationUpRight, "↗", 0, 2}, {PTZOperationLeft, "←", 1, 0},
    {PTZOperationRight, "→", 1, 2},   {PTZOperationDownLeft, "↙", 2, 0},
    {PTZOperationDown, "↓", 2, 1},    {PTZOperationDownRight, "↘", 2, 2},
    {PTZOperationZoomIn, "+", 0, 3},  {PTZOperationZoomOut, "−", 2, 3},
};

QString padLabel(PTZOperation operation)
{
    for (const PadButton& row : PadButtons) {
        if (row.operation == operation)
            return QString::fromUtf8(row.label);
    }
    return QString::number(int(operation));
}

const QString RequestPrefix = QStringLiteral("viewer-ptz-");
constexpr int PresetNumberRole = Qt::UserRole;

} // namespace

PtzPanel::PtzPanel(QWidget* parent)
    : QWidget(parent)
    , m_stop(new QToolButton)
    , m_presets(new QListWidget)
    , m_refresh(new QPushButton(tr("Get presets")))
    , m_goTo(new QPushButton(tr("Go to")))
    , m_result(new QLabel)
{
    auto* pad = new QGridLayout;
    for (const PadButton& row : PadButtons) {
        auto* button = new QToolButton;
        button->setText(QString::fromUtf8(row.label));
        button->setFixedSize(36, 36);
        const PTZOperation operation = row.operation;
        connect(button, &QAbstractButton::pressed, this,
                [this, operation] { move(operation, PTZActionStart); });
        connect(button, &QAbstractButton::released, this,
                [this, operation] { move(operation, PTZActionStop); });
        pad->addWidget(button, row.row, row.column);
        m_moveButtons.insert(operation, button);
    }
    m_stop->setText(QStringLiteral("■"));
    m_stop->setToolTip(tr("Stop"));
    m_stop->setFixedSize(36, 36);
    connect(m_stop, &QAbstractButton::clicked, this,
            [this] { move(m_lastOperation, PTZActionStop); });
    pad->addWidget(m_stop, 1, 1);
    pad->addWidget(new QLabel(tr("zoom")), 1, 3, Qt::AlignCenter);

    auto* presetButtons = new QHBoxLayout;
    presetButtons->addWidget(m_refresh);
    presetButtons->addWidget(m_goTo);
    connect(m_refresh, &QAbstractButton::clicked, this, &PtzPanel::refreshPresets);
    connect(m_goTo, &QAbstractButton::clicked, this, &PtzPanel::goToPreset);
    connect(m_presets, &QListWidget::itemDoubleClicked, this, &PtzPanel::goToPreset);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pad);
    layout->addWidget(m_presets);
    layout->addLayout(presetButtons);
    layout->addWidget(m_result);
    m_result->setWordWrap(true);

    auto* signals_ = ClientSignals::instance();
    connect(signals_, &ClientSignals::signalPTZCtrlRes, this,
            [this](const Response& response, PTZOperation operation, PTZAction action) {
                report(response, (action == PTZActionStart ? tr("moving %1") : tr("stopped %1"))
                                     .arg(padLabel(operation)));
            });
    connect(signals_, &ClientSignals::signalGetPresetsRes, this,
            [this](const Response& response, const QList<PresetInfo>& presets) {
                if (!isOurs(response))
                    return;
                m_presets->clear();
                for (const PresetInfo& preset : presets) {
                    auto* item = new QListWidgetItem(
                        QStringLiteral("%1  %2").arg(preset.presetNum).arg(preset.presetName));
                    item->setData(PresetNumberRole, preset.presetNum);
                    m_presets->addItem(item);
                }
                if (m_presets->count() > 0)
                    m_presets->setCurrentRow(0);
                report(response, tr("%n preset(s)", nullptr, int(presets.size())));
            });
    connect(
        signals_, &ClientSignals::signalOperPresetsRes, this,
        [this](const Response& response, PresetOper) { report(response, tr("at the preset")); });
    setChannel(std::nullopt);
}

QAbstractButton* PtzPanel::moveButton(PTZOperation operation) const
{
    return m_moveButtons.value(operation);
}

void PtzPanel::setChannel(const std::optional<ChannelId>& channel)
{
    if (channel == m_channel && channel)
        return;
    m_channel = channel;
    m_presets->clear();
    m_result->setText(channel ? QString() : tr("select a camera"));
    setEnabled(channel.has_value());
    if (channel)
        refreshPresets();
}

QString PtzPanel::nextRequestId()
{
    return RequestPrefix + QString::number(++m_requests);
}

bool PtzPanel::isOurs(const Response& response) const
{
    return response.requestId.startsWith(RequestPrefix);
}

void PtzPanel::report(const Response& response, const QString& what)
{
    if (!isOurs(response))
        return;
    m_result->setText(response.errCode == 0
                          ? what
                          : tr("refused: %1 (%2)").arg(response.errMsg).arg(response.errCode));
}

void PtzPanel::move(PTZOperation operation, PTZAction action)
{
    if (!m_channel)
        return;
    m_lastOperation = operation;
    PTZ_ctrl_req({.requestId = nextRequestId(),
                  .channelId = *m_channel,
                  .operation = operation,
                  .action = action,
                  .speed = 5});
}

void PtzPanel::refreshPresets()
{
    if (m_channel)
        get_presets_req({.requestId = nextRequestId(), .channelId = *m_channel});
}

void PtzPanel::goToPreset()
{
    const QListWidgetItem* item = m_presets->currentItem();
    if (!m_channel || !item)
        return;
    oper_preset_req({.requestId = nextRequestId(),
                     .channelId = *m_channel,
                     .presetNum = item->data(PresetNumberRole).toUInt(),
                     .presetName = {},
                     .operation = PresetOperCall});
}
