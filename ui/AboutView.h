// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "desktop/frmAbout.h"
#include "ui/FormWindow.h"

#include <QPixmap>

namespace tonvale {

class AboutView : public FormWindow {
public:
    explicit AboutView(frmAbout &form);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void buildPlate(QWidget &plate);
    void addLink(QWidget &plate, Label &label, const char *name, QPoint place);
    [[nodiscard]] const QPixmap &tile();

    frmAbout &model_;
    QPixmap tile_;
};

} // namespace tonvale
