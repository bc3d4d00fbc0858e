// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/media/engine/MidiSong.h"
#include "tests/backend/media/FilmTest.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace tonvale {

namespace {

constexpr auto kUnplayable = static_cast<std::int32_t>(ErrorNumber::AutomationError);
constexpr auto kFileNotFound = static_cast<std::int32_t>(ErrorNumber::FileNotFound);
constexpr auto kAccessError = static_cast<std::int32_t>(ErrorNumber::PathFileAccessError);
constexpr auto kBadName = static_cast<std::int32_t>(ErrorNumber::BadFileNameOrNumber);

struct HostileInput : MediaTest {
    void copyTone(const std::string &name) { std::filesystem::copy_file(media("tone.wav"), scratch / name); }
    // A text that leads to a file which exists, and could be played.
    std::int32_t textError(const std::string &name, const std::string &text) {
        copyTone("target.wav");
        return openError(write(name, text));
    }
};

struct HostileFilm : FilmTest {};

TEST_F(HostileInput, TextIsNoSong) {
    std::string text;
    while (text.size() < 10000) text += "This is a letter to a friend, and no music at all.\n";
    EXPECT_EQ(openError(write("text.mp3", text)), kUnplayable);
}

TEST_F(HostileInput, EmptyFile) { EXPECT_EQ(openError(write("empty.mp3", "")), kUnplayable); }

TEST_F(HostileInput, Zeros) { EXPECT_EQ(openError(write("zeros.mp3", std::string(100000, '\0'))), kUnplayable); }

TEST_F(HostileInput, MissingFile) { EXPECT_EQ(openError(scratch / "missing.mp3"), kFileNotFound); }

TEST_F(HostileInput, EmptyPathAndPathWithAZero) {
    EXPECT_EQ(openError(""), kFileNotFound);
    EXPECT_EQ(openError(media("tone.wav") + std::string(1, '\0') + ".mp3"), kFileNotFound);
}

TEST_F(HostileInput, Directory) { EXPECT_EQ(openError(scratch), kAccessError); }

TEST_F(HostileInput, PathOf4000Bytes) {
    EXPECT_EQ(openError("/" + std::string(4000, 'a')), kBadName);
    std::string deep;
    while (deep.size() < 4000) deep += "/directory";
    EXPECT_EQ(openError(deep), kFileNotFound);
}

TEST_F(HostileInput, PipeIsRefusedAtOnce) {
    const std::string path = scratch / "pipe.mp3";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(openError(path), kAccessError);
}

TEST_F(HostileInput, DeviceIsRefused) { EXPECT_EQ(openError("/dev/zero"), kAccessError); }

TEST_F(HostileInput, AddressesAreFileNames) {
    for (const char *address : {"http://localhost/tone.mp3", "edl://tone.wav", "memory://abc", "fd://0",
                                "av://lavfi:sine", "-", "--version", "tonvale://1"})
        EXPECT_EQ(openError(address), kFileNotFound) << address;
}

TEST_F(HostileInput, OddNamesAreJustNames) {
    for (const char *name : {"\xff\xfe\x80.wav", "new\nline.wav", "quo\"te'.wav", "-leading.wav", "%41.wav",
                             "${path}.wav", " .wav", "a,b=c;d.wav", "no extension", "tone.wav.ply"}) {
        copyTone(name);
        EXPECT_EQ(openError(scratch / name), 0) << name;
        EXPECT_NEAR(engine->duration(), 12, 0.01) << name;
    }
}

TEST_F(HostileInput, RelativeName) {
    copyTone("-tone.wav");
    std::filesystem::current_path(scratch);
    EXPECT_EQ(openError("-tone.wav"), 0);
    std::filesystem::current_path("/");
}

TEST_F(HostileInput, LinkToAFileIsFollowed) {
    std::filesystem::create_symlink(media("tone.mp3"), scratch / "link.wav");
    EXPECT_EQ(openError(scratch / "link.wav"), 0);
}

TEST_F(HostileInput, PlaylistsAreNotExpanded) {
    EXPECT_EQ(textError("list.mp3", "#EXTM3U\n#EXTINF:12,x\ntarget.wav\n"), kUnplayable);
}

TEST_F(HostileInput, AbsoluteNamesInListsAreNotFollowed) {
    const std::string target = media("tone.wav");
    int number = 0;
    for (const auto &text : std::initializer_list<std::string>{
             "#EXTM3U\n" + target + "\n", "[playlist]\nFile1=" + target + "\nNumberOfEntries=1\n",
             "FILE \"" + target + "\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n",
             "# mpv EDL v0\n" + target + "\n", "ffconcat version 1.0\nfile '" + target + "'\n",
             "ffconcat version 1.0\nfile target.wav\n",
             "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:12\n#EXTINF:12,\n" + target + "\n#EXT-X-ENDLIST\n",
             "<asx version=\"3.0\"><entry><ref href=\"" + target + "\"/></entry></asx>", "rtsp://127.0.0.1:1/x.rm\n",
             std::string("v=0\r\no=- 0 0 IN IP4 127.0.0.1\r\nc=IN IP4 127.0.0.1\r\nm=audio 5004 RTP/AVP 0\r\n")}) {
        const std::string path = write("list" + std::to_string(number++) + ".mp3", text);
        EXPECT_EQ(openError(path), kUnplayable) << text;
    }
}

TEST_F(HostileInput, ArchivesAreNotUnpacked) {
    const std::string command =
        "cd '" + scratch.string() + "' && cp '" + media("tone.wav") + "' in.wav && tar cf tone.mp3 in.wav";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(openError(scratch / "tone.mp3"), kUnplayable);
}

TEST_F(HostileInput, TruncatedWavPlaysWhatIsThere) {
    copyTone("cut.wav");
    std::filesystem::resize_file(scratch / "cut.wav", 44 + 44100 * 4);
    openAndPlay(scratch / "cut.wav");
    EXPECT_TRUE(hasEnded());
}

TEST_F(HostileInput, HeaderAloneDoesNotHang) {
    copyTone("header.wav");
    std::filesystem::resize_file(scratch / "header.wav", 44);
    if (openError(scratch / "header.wav") == 0) {
        engine->play();
        EXPECT_TRUE(hasEnded());
    }
}

TEST_F(HostileInput, FileThatVanishesGoesOnPlaying) {
    copyTone("gone.wav");
    openAndPlay(scratch / "gone.wav");
    std::filesystem::remove(scratch / "gone.wav");
    EXPECT_TRUE(reachesPosition(0.3));
    engine->seek(11.8);
    EXPECT_TRUE(hasEnded());
}

TEST_F(HostileInput, FileThatShrinksEndsEarly) {
    copyTone("shrinks.wav");
    openAndPlay(scratch / "shrinks.wav");
    std::filesystem::resize_file(scratch / "shrinks.wav", 1000);
    engine->seek(8);
    EXPECT_TRUE(hasEnded());
}

TEST_F(HostileInput, AFailedOpenClosesWhatWasOpen) {
    openAndPlay(media("tone.wav"));
    ASSERT_TRUE(reachesPosition(0.1));
    EXPECT_NE(openError(scratch / "missing.mp3"), 0);
    EXPECT_EQ(engine->duration(), 0);
    EXPECT_EQ(engine->position(), 0);
    engine->play();
    EXPECT_EQ(openError(media("tone.wav")), 0);
    EXPECT_EQ(ended, 0);
}

// --- MIDI

std::string midi(const std::string &track, const std::string &division = {1, '\xE0'}) {
    const auto length = static_cast<std::uint32_t>(track.size());
    std::string bytes("MThd\0\0\0\6\0\0\0\1", 12);
    bytes += division + "MTrk";
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(length >> shift);
    return bytes + track;
}

const std::string
    kEndless("\x00\xFF\x51\x03\xFF\xFF\xFF\xFF\xFF\xFF\x7F\x90\x40\x40\xFF\xFF\xFF\x7F\x80\x40\x40\x00\xFF\x2F\x00",
             25);

TEST_F(HostileInput, DamagedSongs) {
    EXPECT_EQ(openError(write("head.mid", "MThd")), kUnplayable);
    EXPECT_EQ(openError(write("rmid.rmi", std::string("RIFF\xFF\xFF\xFF\xFFRMID", 12))), kUnplayable);
    EXPECT_EQ(openError(write("film.mid", midi(kEndless, "\xE7\x28"))), kUnplayable);
    EXPECT_EQ(openError(write("zero.mid", midi(kEndless, std::string(2, '\0')))), kUnplayable);
}

TEST_F(HostileInput, EndlessSongIsLimited) {
    open(write("endless.mid", midi(kEndless)));
    EXPECT_LE(engine->duration(), 6 * 3600 + 1);
    engine->play();
    EXPECT_TRUE(reachesPosition(0.2));
}

TEST_F(HostileInput, TempoOfNothingEndsSoon) {
    openAndPlay(write("quick.mid", midi(std::string("\x00\xFF\x51\x03\x00\x00\x00\xFF\xFF\xFF\x7F\x90\x40\x40", 14))));
    EXPECT_LT(engine->duration(), 2);
    EXPECT_TRUE(hasEnded());
}

TEST_F(HostileInput, SongsCutAnywhereAreReadWithoutHarm) {
    const std::string whole = readFile(media("song.rmi"));
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const auto bytes = std::as_bytes(std::span(whole.data(), length));
        if (looksLikeMidi(bytes)) errorOf([&] { EXPECT_LT(MidiSong(bytes).duration(), 13); });
    }
}

TEST_F(HostileInput, HugeSongIsRefused) {
    const std::string path = write("huge.mid", "MThd");
    std::filesystem::resize_file(path, 64 * 1024 * 1024);
    EXPECT_EQ(openError(path), kUnplayable);
}

// --- A disc that does not answer, and one that fails

class HungSource final : public MediaSource {
public:
    [[nodiscard]] std::int64_t size() const override { return 1'000'000; }
    [[nodiscard]] std::int64_t read(std::span<std::byte>) override {
        std::unique_lock lock(mutex_);
        released_.wait(lock, [this] { return free_; });
        return -1;
    }
    [[nodiscard]] bool seek(std::int64_t) override { return true; }
    [[nodiscard]] double measuredDuration(const std::string &) const override { return 0; }
    [[nodiscard]] std::string extension() const override { return "mp3"; }

    void release() {
        const std::lock_guard lock(mutex_);
        free_ = true;
        released_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable released_;
    bool free_ = false;
};

TEST_F(HostileInput, OpenGivesUpInTimeAndTheNextFilePlays) {
    const auto hung = std::make_shared<HungSource>();
    options.openTimeout = 300ms;
    options.openSource = [hung](const std::string &path) {
        return path == "hung" ? std::shared_ptr<MediaSource>(hung) : openMediaSource(path);
    };
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(openError("hung"), kUnplayable);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);

    options.openTimeout = 10s;
    engine.reset();
    EXPECT_EQ(openError(media("tone.wav")), 0);
    engine->play();
    EXPECT_TRUE(reachesPosition(0.2));
    hung->release();
}

// Reads well until the disc stalls, and hangs then.
class StallingSource final : public MediaSource {
public:
    StallingSource(std::shared_ptr<MediaSource> source, std::shared_ptr<HungSource> hung, std::atomic<bool> &stalls)
        : source_(std::move(source)), hung_(std::move(hung)), stalls_(stalls) {}
    [[nodiscard]] std::int64_t size() const override { return source_->size(); }
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override {
        return stalls_ ? hung_->read(buffer) : source_->read(buffer);
    }
    [[nodiscard]] bool seek(std::int64_t offset) override { return source_->seek(offset); }
    [[nodiscard]] double measuredDuration(const std::string &) const override { return 0; }
    [[nodiscard]] std::string extension() const override { return source_->extension(); }

private:
    std::shared_ptr<MediaSource> source_;
    std::shared_ptr<HungSource> hung_;
    std::atomic<bool> &stalls_;
};

TEST_F(HostileFilm, ADiscThatHangsInMidFilmHoldsNobodyUp) {
    const auto hung = std::make_shared<HungSource>();
    static std::atomic<bool> stalls{false}; // outlives a decoder that is left to itself
    options.openSource = [hung](const std::string &path) {
        return std::make_shared<StallingSource>(openMediaSource(path), hung, stalls);
    };
    makeEngine();
    show({320, 240});
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(window->showsQuadrants(0, 0, 320, 240));
    ASSERT_TRUE(reachesPosition(0.5));
    stalls = true;
    engine->seek(11);
    loop.runFor(100ms);
    const auto start = std::chrono::steady_clock::now();
    engine->close();
    engine.reset();
    window.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    hung->release();
}

// Reads well up to a point, and then no more.
class FailingSource final : public MediaSource {
public:
    explicit FailingSource(std::shared_ptr<MediaSource> source) : source_(std::move(source)) {}
    [[nodiscard]] std::int64_t size() const override { return source_->size(); }
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override {
        constexpr std::int64_t kGood = 400'000;
        const std::int64_t count = offset_ < kGood ? source_->read(buffer) : -1;
        if (count > 0) offset_ += count;
        return count;
    }
    [[nodiscard]] bool seek(std::int64_t offset) override {
        offset_ = offset;
        return source_->seek(offset);
    }
    [[nodiscard]] double measuredDuration(const std::string &) const override { return 0; }
    [[nodiscard]] std::string extension() const override { return source_->extension(); }

private:
    std::shared_ptr<MediaSource> source_;
    std::int64_t offset_ = 0;
};

TEST_F(HostileInput, FailureOnTheWayEndsOnce) {
    options.openSource = [](const std::string &path) { return std::make_shared<FailingSource>(openMediaSource(path)); };
    openAndPlay(media("tone.wav"));
    EXPECT_TRUE(hasEnded());
    loop.runFor(300ms);
    EXPECT_EQ(ended, 1);
    engine->stop();
    EXPECT_EQ(engine->position(), 0);
}

} // namespace

} // namespace tonvale
