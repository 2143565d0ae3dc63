// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#include "progress_bar.h"

#include <algorithm>

namespace vms_cli {

namespace {
constexpr int Width = 20;
}

ProgressBar::ProgressBar(QTextStream& out, const QString& label, bool inPlace)
    : m_out(out)
    , m_label(label)
    , m_inPlace(inPlace)
{}

QString ProgressBar::render(const QString& label, int percent, const QString& note)
{
    const int clamped = std::clamp(percent, 0, 100);
    const int filled = clamped * Width / 100;
    QString line = QStringLiteral("  %1 [%2%3] %4%")
                       .arg(label, QString(filled, QLatin1Char('#')),
                            QString(Width - filled, QLatin1Char('-')))
                       .arg(clamped, 3);
    if (!note.isEmpty())
        line += QLatin1Char(' ') + note;
    return line;
}

void ProgressBar::update(int percent, const QString& note)
{
    if (percent == m_shown)
        return;
    m_shown = percent;
    if (m_inPlace)
        m_out << '\r' << render(m_label, percent, note) << "\x1b[K" << Qt::flush;
    else
        m_out << render(m_label, percent, note) << Qt::endl;
}

void ProgressBar::finish(const QString& note)
{
    if (m_inPlace)
        m_out << '\r' << render(m_label, m_shown, note) << "\x1b[K" << Qt::endl;
    else if (!note.isEmpty())
        m_out << render(m_label, m_shown, note) << Qt::endl;
}

} // namespace vms_cli
