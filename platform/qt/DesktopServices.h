// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/qt/DesktopKeyboard.h"
#include "platform/qt/DesktopProperties.h"
#include "platform/qt/DesktopScreenSaver.h"
