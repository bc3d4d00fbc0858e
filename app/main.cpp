// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Display.h"
#include "app/Program.h"
#include "platform/machine/mixer/SystemMixer.h"

#include <csignal>
#include <span>

int main(int argc, char *argv[]) {
    const std::span<char *const> arguments(argv, static_cast<std::size_t>(argc));
    // A file that must not grow any more is an error to tell of, not the program's end.
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    // The panel shows the speaker volume from the start, so its library loads beside the toolkit.
    tonvale::SystemMixer mixer;
    mixer.preload();
    const tonvale::Display display(argv[0]);
    tonvale::Program program(arguments.subspan(arguments.empty() ? 0 : 1), mixer);
    return program.run();
}
