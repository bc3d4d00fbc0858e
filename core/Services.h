// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "controls/CDReader.h"
#include "controls/Loop.h"
#include "controls/MMPropertiesX.h"
#include "controls/MediaPlayer.h"
#include "controls/Mp3Enc.h"
#include "controls/Mp3Play.h"
#include "controls/Screen.h"
#include "controls/WinHook.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What the system's logic needs of the machine. Each interface is implemented once below
// platform/ or ui/ and once, as a fake, for the tests. All of it is for the user-interface thread.

namespace tonvale {

// ---- registry -----------------------------------------------------------------------------

enum class RootKey : std::uint32_t {
    ClassesRoot = 0x80000000,
    CurrentUser = 0x80000001,
    LocalMachine = 0x80000002,
};

enum class ValueType : std::uint32_t { None = 0, String = 1, ExpandString = 2, Binary = 3, Dword = 4 };

struct RegistryValue {
    ValueType type = ValueType::String;
    std::string data; // bytes as stored; a String's terminating zero is not part of it
};

// A tree of keys, each with named values. Key paths are separated by backslashes. Keys and value
// names are found without regard to (ASCII) case and keep the case of their creation. Every
// operation throws RuntimeError when the store fails (61 disk full, 70 read-only, 75 otherwise).
class Registry {
public:
    virtual ~Registry() = default;

    virtual bool keyExists(RootKey root, const std::string &key) = 0;
    // The value, or nothing when key or value is missing. The empty name is the default value.
    virtual std::optional<RegistryValue> query(RootKey root, const std::string &key, const std::string &name) = 0;
    // Makes the key and those above it where they are missing.
    virtual void set(RootKey root, const std::string &key, const std::string &name, const RegistryValue &value) = 0;
    // Both return false when there is nothing to delete. A key with keys below it is not deleted.
    virtual bool deleteValue(RootKey root, const std::string &key, const std::string &name) = 0;
    virtual bool deleteKey(RootKey root, const std::string &key) = 0;
    // Names of the keys right below, in order of name.
    virtual std::vector<std::string> subKeys(RootKey root, const std::string &key) = 0;
};

// ---- files --------------------------------------------------------------------------------

// Reads a text file line by line; a line ends at CR or CR LF, an LF alone is part of it.
class LineReader {
public:
    virtual ~LineReader() = default;
    // The next line without its end, or nothing at the end of the file. Throws RuntimeError on a
    // read error, on a line of more than 1 MiB, and where the lines so far are more than any list
    // of files holds.
    virtual std::optional<std::string> next() = 0;
};

// Names are bytes and are found without regard to case: an exact name wins, else the first match
// in byte order, in each directory of the path. Failures are thrown as RuntimeError (53 no such
// file, 76 no such directory, 70 no permission, 75 it is a directory, 58 the target exists ...).
class FileService {
public:
    virtual ~FileService() = default;

    // The name on disk that `path` finds; `path` itself when it finds none.
    virtual std::string find(const std::string &path) = 0;
    virtual bool fileExists(const std::string &path) = 0; // a file, not a directory
    virtual bool pathExists(const std::string &path) = 0; // either of them
    // The names of the files right in the directory, in order of name; hidden ones are left out.
    virtual std::vector<std::string> filesIn(const std::string &directory) = 0;
    virtual std::int64_t fileLength(const std::string &path) = 0;
    virtual void rename(const std::string &from, const std::string &to) = 0; // never replaces
    virtual void deleteFile(const std::string &path) = 0;
    // Takes away what keeps the file from being written or deleted.
    virtual void clearAttributes(const std::string &path) = 0;
    virtual std::unique_ptr<LineReader> openLines(const std::string &path) = 0; // regular files only
    // Gives the file this content, whole or not at all. A link stays a link; a new file is made.
    virtual void replaceFile(const std::string &path, const std::string &content) = 0;
    virtual std::string currentDirectory() = 0;
    // A directory of this user alone, ending in the separator.
    virtual std::string temporaryDirectory() = 0;
};

// ---- message boxes and dialogs -------------------------------------------------------------

enum class BoxIcon { None, Critical, Question, Exclamation, Information };
enum class BoxButtons { Ok, YesNo, YesNoButNoPreferred, YesNoCancel };
enum class BoxResult { Ok = 1, Cancel = 2, Yes = 6, No = 7 };
enum class BoxPlace { Normal, Foreground, SystemModal }; // system modal is foreground, too

struct MessageBox {
    std::string text; // plain text; line breaks are "\r\n" or "\n"
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
    BoxPlace place = BoxPlace::Normal;
    std::string title; // empty: the application's title
};

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    // Shows the box and serves messages until it is answered. Closing a box with Cancel is Cancel,
    // closing another one with No is No.
    virtual BoxResult show(const MessageBox &box) = 0;
};

// The file dialogs of the desktop. Strings that hold several texts separate them with zero
// characters, as these calls always did.
struct OpenFileName {
    std::string title;
    std::string filter; // description, zero, patterns "*.a;*.b", zero, ... and a last zero
    std::int32_t filterIndex = 0;
    std::string initialDirectory;
    std::string defaultExtension; // with or without the dot
    std::int32_t flags = 0;
    // How many bytes the caller makes room for. The answer has as many as it needs all the same.
    std::size_t capacity = 256;
    std::string file;      // in: the name proposed; out: the answer
    std::string fileTitle; // out: the name without its directory; empty when several were chosen
};

inline constexpr std::int32_t kDialogOverwritePrompt = 0x2;
inline constexpr std::int32_t kDialogHideReadOnly = 0x4;
inline constexpr std::int32_t kDialogNoChangeDir = 0x8;
inline constexpr std::int32_t kDialogAllowMultiselect = 0x200;
inline constexpr std::int32_t kDialogPathMustExist = 0x800;
inline constexpr std::int32_t kDialogFileMustExist = 0x1000;
inline constexpr std::int32_t kDialogExplorer = 0x80000;
inline constexpr std::int32_t kDialogLongNames = 0x200000;

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    // 1 chosen, 0 cancelled, anything else failed.
    virtual std::int32_t getOpenFileName(OpenFileName &dialog) = 0;
    virtual std::int32_t getSaveFileName(OpenFileName &dialog) = 0;
    virtual std::int32_t extendedError() = 0;
    // The directory chosen, or nothing.
    virtual std::optional<std::string> browseForFolder(const std::string &title) = 0;
};

// ---- desktop -------------------------------------------------------------------------------

// Starts things through the desktop's handlers, never through a command interpreter.
class Shell {
public:
    virtual ~Shell() = default;

    struct Launch {
        std::int32_t code =
            0; // above 32 success; 2 file not found, 3 path not found, 5 access denied, 31 no association
        std::uint64_t process = 0; // 0: no process that could be asked
    };
    // `verb` is "", "open", "explore" or "print"; `file` a path or an address.
    virtual Launch execute(const std::string &verb, const std::string &file, const std::string &parameters,
                           const std::string &directory, std::int32_t showCommand) = 0;
    virtual bool isRunning(std::uint64_t process) = 0;
};

// Recently used documents of the whole desktop.
class RecentDocuments {
public:
    virtual ~RecentDocuments() = default;
    virtual void add(const std::string &path) = 0;
    virtual void clear() = 0;
};

// Windows of other programs of this family.
using WindowHandle = std::uint64_t;
struct WindowInfo {
    WindowHandle handle = 0;
    std::string className;
    std::string title;
};
class WindowSystem {
public:
    virtual ~WindowSystem() = default;
    // False when the windows cannot be listed.
    virtual bool isAvailable() = 0;
    virtual std::vector<WindowInfo> windows() = 0;
    // Asks for an orderly close and waits until it has happened; a main window takes its process
    // with it. A window that is gone already is closed.
    virtual void sendClose(WindowHandle window) = 0;
};

// The system's speaker volume. open() and close() stand around each use.
struct MixerLine {
    std::uint32_t id = 0;
};
struct MixerControl {
    std::uint32_t id = 0;
    std::int32_t Minimum = 0, Maximum = 65535;
};
class Mixer {
public:
    virtual ~Mixer() = default;
    virtual bool open() = 0; // the default output
    virtual std::optional<MixerLine> speakersLine() = 0;
    virtual std::optional<MixerControl> volumeControl(const MixerLine &line) = 0;
    virtual std::optional<std::int32_t> value(const MixerControl &control) = 0; // Minimum to Maximum
    virtual bool setValue(const MixerControl &control, std::int32_t value) = 0;
    virtual void close() = 0;
};

// Association of a file type with this program.
class FileAssociations {
public:
    virtual ~FileAssociations() = default;
    virtual bool FileAssociator(const std::string &extension, const std::string &description,
                                const std::string &typeDescription) = 0;
};

class Random {
public:
    virtual ~Random() = default;
    virtual double next() = 0; // 0 <= x < 1
};

// ---- all of them -----------------------------------------------------------------------------

struct ProgramInfo {
    std::string title = "Orvane Tonvale";
    std::string directory;   // where the program lies, without a separator at the end
    std::string commandLine; // what follows the program's name
};

struct Services {
    EventLoop &loop;
    Clock &clock;
    Registry &registry;
    FileService &files;
    MessageBoxes &boxes;
    FileDialogs &dialogs;
    Shell &shell;
    RecentDocuments &recentDocuments;
    Screen &screen;
    ScreenSaver &screenSaver;
    SystemProperties &systemProperties;
    KeyboardHook &keyboard;
    WindowSystem &windows;
    Mixer &mixer;
    Random &random;
    MediaEngineFactory makeMediaEngine;
    std::function<std::unique_ptr<CDReader>()> makeCDReader;
    std::function<std::unique_ptr<Mp3Enc>()> makeMp3Enc;
    std::function<std::unique_ptr<Mp3Play>()> makeMp3Play;
    FileAssociations *associations = nullptr; // null: not there
    ProgramInfo program;

    // What a media player control needs.
    [[nodiscard]] MediaServices media() const { return {loop, makeMediaEngine, screen, screenSaver}; }
};

} // namespace tonvale
