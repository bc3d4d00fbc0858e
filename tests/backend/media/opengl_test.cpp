// SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/backend/media/FilmTest.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GLES2/gl2.h>

namespace tonvale {

namespace {

// A graphics card that is none: pictures are painted by OpenGL into a surface in memory.
class Card {
public:
    explicit Card(PictureSize size) {
        display_ = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, nullptr, nullptr);
        if (display_ == EGL_NO_DISPLAY || !eglInitialize(display_, nullptr, nullptr)) return;
        const EGLint wanted[] = {EGL_SURFACE_TYPE,
                                 EGL_PBUFFER_BIT,
                                 EGL_RENDERABLE_TYPE,
                                 EGL_OPENGL_ES2_BIT,
                                 EGL_RED_SIZE,
                                 8,
                                 EGL_GREEN_SIZE,
                                 8,
                                 EGL_BLUE_SIZE,
                                 8,
                                 EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        if (!eglChooseConfig(display_, wanted, &config, 1, &count) || count == 0) return;
        const EGLint area[] = {EGL_WIDTH, size.width, EGL_HEIGHT, size.height, EGL_NONE};
        const EGLint version[] = {EGL_CONTEXT_CLIENT_VERSION, 2, EGL_NONE};
        surface_ = eglCreatePbufferSurface(display_, config, area);
        context_ = eglCreateContext(display_, config, EGL_NO_CONTEXT, version);
    }
    ~Card() {
        if (display_ == EGL_NO_DISPLAY) return;
        eglMakeCurrent(display_, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        if (context_ != EGL_NO_CONTEXT) eglDestroyContext(display_, context_);
        if (surface_ != EGL_NO_SURFACE) eglDestroySurface(display_, surface_);
        // The display stays: drivers that are unloaded could not be named where they leak.
    }
    Card(const Card &) = delete;
    Card &operator=(const Card &) = delete;

    [[nodiscard]] bool isThere() const { return surface_ != EGL_NO_SURFACE && context_ != EGL_NO_CONTEXT; }
    [[nodiscard]] PictureSource::OpenGl access() {
        PictureSource::OpenGl openGl;
        openGl.makeCurrent = [this] { makeCurrent(); };
        openGl.procAddress = [](const char *name) { return reinterpret_cast<void *>(eglGetProcAddress(name)); };
        return openGl;
    }
    void makeCurrent() { EXPECT_TRUE(eglMakeCurrent(display_, surface_, surface_, context_)); }
    // From the left above.
    [[nodiscard]] Colour at(int x, int y, int height) {
        makeCurrent();
        std::array<std::uint8_t, 4> pixel{};
        glReadPixels(x, height - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
        return {pixel[0], pixel[1], pixel[2]};
    }

private:
    EGLDisplay display_ = EGL_NO_DISPLAY;
    EGLSurface surface_ = EGL_NO_SURFACE;
    EGLContext context_ = EGL_NO_CONTEXT;
};

struct OpenGl : FilmTest {
    OpenGl() { isThere = card.isThere(); }
    ~OpenGl() override { source->detach(); }

    void attach() {
        ASSERT_TRUE(source->attach({[this] { loop.post([this] { paint(); }); }, card.access()}));
    }
    void paint() {
        card.makeCurrent();
        static_cast<void>(source->paint(PictureSource::FrameBuffer{0, kSize}));
    }
    bool becomes(int x, int y, Colour colour) {
        return loop.runUntil([&] { return isLike(card.at(x, y, kSize.height), colour); });
    }

    static constexpr PictureSize kSize{640, 240};
    Card card{kSize};
    bool isThere = false;
};

TEST_F(OpenGl, PaintsTheColoursAtTheirPlaces) {
    if (!isThere) GTEST_SKIP() << "needs libegl-mesa0";
    openAndPlay(film("quadrants.avi"));
    attach();
    EXPECT_TRUE(becomes(240, 60, kRed));
    EXPECT_TRUE(becomes(400, 60, kGreen));
    EXPECT_TRUE(becomes(240, 180, kBlue));
    EXPECT_TRUE(becomes(400, 180, kWhite));
    EXPECT_TRUE(becomes(40, 120, kBlack));
    EXPECT_FALSE(source->paint(PictureSource::Pixels{})); // that is the other way
}

TEST_F(OpenGl, ShowsSettingsAndTurnedFilmsAlike) {
    if (!isThere) GTEST_SKIP() << "needs libegl-mesa0";
    attach();
    openAndPlay(film("quadrants.avi"));
    ASSERT_TRUE(becomes(400, 180, kWhite));
    MediaSettings settings = engine->settings();
    settings.brightness = -100;
    engine->setSettings(settings);
    EXPECT_TRUE(becomes(400, 180, kBlack));
    openAndPlay(film("rotated.mov"));
    EXPECT_EQ(engine->pictureSize(), (PictureSize{240, 320}));
    EXPECT_TRUE(becomes(200, 120, kBlack));
    EXPECT_TRUE(loop.runUntil([&] { return !isLike(card.at(290, 60, kSize.height), kBlack); }));
}

TEST_F(OpenGl, EndsWithTheEngineAtAnyMoment) {
    if (!isThere) GTEST_SKIP() << "needs libegl-mesa0";
    for (int i = 0; i < 6; ++i) {
        makeEngine();
        attach();
        openAndPlay(film("quadrants.avi"));
        loop.runFor(std::chrono::milliseconds(11 * i));
        const auto start = std::chrono::steady_clock::now();
        if (i % 2 == 0) source->detach();
        engine.reset();
        EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
        paint();
        source->detach();
    }
}

} // namespace

} // namespace tonvale
