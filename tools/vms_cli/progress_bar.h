// SPDX-License-Identifier: LicenseRef-Proprietary
// SPDX-FileCopyrightText: the vms_client_sdk developers
#pragma once

#include <QString>
#include <QTextStream>

namespace vms_cli {

// "  label [##########----------]  50% note". On a terminal the bar is redrawn in place; to a
// file or a pipe each new percentage is a line of its own, so logs stay readable.
class ProgressBar
{
public:
    ProgressBar(QTextStream& out, const QString& label, bool inPlace);
    void update(int percent, const QString& note = {});
    void finish(const QString& note);

    static QString render(const QString& label, int percent, const QString& note);

private:
    QTextStream& m_out;
    QString m_label;
    bool m_inPlace;
    int m_shown = -1;
};

} // namespace vms_cli
