// The voice that is another program. Small scripts stand in for it and tell through a pipe of the
// file system what they have heard; where the program itself is installed it speaks into a file.
#include "platform_services/espeak_speech.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "fakes/temp_folder.h"

namespace tavernook {
namespace {

using Command = std::vector<std::string>;

class Voice : public testing::Test {
  protected:
    Voice() {
        EXPECT_EQ(::mkfifo(pipe_path.c_str(), 0600), 0);
        pipe = ::open(pipe_path.c_str(), O_RDWR | O_CLOEXEC);
    }
    ~Voice() override {
        ::close(pipe);
        errno = 0;
        EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a program was not waited for";
        EXPECT_EQ(errno, ECHILD);
    }

    // `$0` is the pipe to tell by.
    Command script(const std::string& text) const { return {"sh", "-c", text, pipe_path}; }

    // The next line that comes through the pipe.
    std::string heard() const {
        std::string line;
        char letter = 0;
        while (::read(pipe, &letter, 1) == 1 && letter != '\n') line += letter;
        return line;
    }
    bool is_silent() const {
        pollfd wanted{pipe, POLLIN, 0};
        return ::poll(&wanted, 1, 0) == 0;
    }

    TempFolder folder;
    std::string pipe_path = folder.path("told");
    int pipe = -1;
};

TEST_F(Voice, EachTextIsOneRunOfTheProgramAndTheyFollowOneAnother) {
    EspeakSpeech voice(script("echo \"<$(cat)>\" > \"$0\""));
    for (const char* text : {"one", "two", "three"}) voice.speak(text);
    EXPECT_EQ(heard(), "<one>");
    EXPECT_EQ(heard(), "<two>");
    EXPECT_EQ(heard(), "<three>");
}

TEST_F(Voice, TextsArriveAsUtf8) {
    EspeakSpeech voice(script("cat > \"$0\"; echo > \"$0\""));
    voice.speak("K\xE4se \x80 2");
    EXPECT_EQ(heard(), "K\xC3\xA4se \xE2\x82\xAC 2");
}

TEST_F(Voice, StopCutsOffAndForgetsWhatWaits) {
    EspeakSpeech voice(script("read -r text; echo \"$text\" > \"$0\"; exec sleep 100000"));
    voice.speak("one\n");
    voice.speak("two\n");
    EXPECT_EQ(heard(), "one");
    voice.stop();
    voice.speak("three\n");
    EXPECT_EQ(heard(), "three");
    voice.stop();
    voice.stop();
    EXPECT_TRUE(is_silent());
}

TEST_F(Voice, TheEndCutsOff) {
    {
        EspeakSpeech voice(script("echo begun > \"$0\"; exec sleep 100000"));
        voice.speak("one");
        voice.speak("two");
        EXPECT_EQ(heard(), "begun");
    }
    EXPECT_TRUE(is_silent());
}

TEST_F(Voice, StoppingNothingIsFine) {
    EspeakSpeech voice(script("echo never > \"$0\""));
    voice.stop();
    EXPECT_TRUE(is_silent());
}

// More than any pipe holds, and nobody reads it.
TEST_F(Voice, ALongTextHoldsNobodyUp) {
    EspeakSpeech voice(script("echo begun > \"$0\"; exec sleep 100000"));
    voice.speak(std::string(20'000'000, 'a'));
    EXPECT_EQ(heard(), "begun");
}

TEST_F(Voice, ALongTextIsHeardToItsEnd) {
    EspeakSpeech voice(script("wc -c > \"$0\""));
    voice.speak(std::string(1'000'000, 'a'));
    EXPECT_EQ(heard(), "1000000");
}

TEST_F(Voice, AProgramThatDoesNotListenIsNoMatter) {
    EspeakSpeech voice(script("echo gone > \"$0\"; exit 1"));
    voice.speak(std::string(1'000'000, 'a'));
    voice.speak("b");
    EXPECT_EQ(heard(), "gone");
    EXPECT_EQ(heard(), "gone");
}

TEST_F(Voice, WithoutTheProgramThereIsSilence) {
    testing::internal::CaptureStderr();
    {
        EspeakSpeech voice({folder.path("no such program")});
        for (int time = 0; time < 100; ++time) voice.speak("one");
        voice.stop();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Voice, WhatTheProgramWritesGoesNowhere) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    {
        EspeakSpeech voice(script("echo out; echo err >&2; echo done > \"$0\""));
        voice.speak("one");
        EXPECT_EQ(heard(), "done");
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Voice, NoOpenFileGoesAlongAndNoneStays) {
    const auto open_files = [] {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    };
    const int stranger = ::fcntl(pipe, F_DUPFD, 100);
    const auto before = open_files();
    {
        EspeakSpeech voice(script("[ -e /proc/$$/fd/" + std::to_string(stranger) +
                                  " ] && echo leak > \"$0\" || echo none > \"$0\""));
        for (int time = 0; time < 20; ++time) {
            voice.speak("one");
            EXPECT_EQ(heard(), "none");
        }
    }
    EXPECT_EQ(open_files(), before);
    ::close(stranger);
}

// --- the program itself --------------------------------------------------------------------------

class RealVoice : public Voice {
  protected:
    void SetUp() override {
        if (std::system("command -v espeak-ng >/dev/null") != 0) {
            GTEST_SKIP() << "espeak-ng is not installed.";
        }
    }

    // What the program makes of the text, with these options more: the file that they name `file`.
    std::string made_of(const std::string& text, const std::string& options) {
        std::string command = "exec 2>/dev/null; ";
        for (const std::string& word : espeak_command()) command += word + " ";
        EspeakSpeech voice(script(command + options + " '" + file + "'; echo done > \"$0\""));
        voice.speak(text);
        EXPECT_EQ(heard(), "done");
        std::ifstream made(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(made), {}};
    }
    std::string sounds_of(const std::string& text) { return made_of(text, "-q -x --phonout"); }

    std::string file = folder.path("made");
};

TEST_F(RealVoice, SpeaksTheWords) {
    EXPECT_EQ(sounds_of("Shopping List"), sounds_of("  shopping list\n"));
    EXPECT_NE(sounds_of("Shopping List"), sounds_of("Expired items"));
    EXPECT_NE(sounds_of("Shopping List").find("l'Ist"), std::string::npos)
        << sounds_of("Shopping List");
}

// A letter that was not understood would be spelt.
TEST_F(RealVoice, KnowsLettersWithMarks) {
    EXPECT_LT(sounds_of("caf\xE9").size(), 20U) << sounds_of("caf\xE9");
    EXPECT_EQ(sounds_of("caf\xE9"), sounds_of("CAF\xC9"));
}

TEST_F(RealVoice, ALongerTextSoundsLonger) {
    const std::size_t second = 22050 * 2;
    const std::size_t word = made_of("ya", "-w").size();
    const std::size_t sentence =
        made_of("ready for scan.  Place item in front of scanner.", "-w").size();
    EXPECT_GT(word, second / 10);
    EXPECT_GT(sentence, word + second);
}

TEST_F(RealVoice, ATextThatLooksLikeAnOptionIsSaid) {
    EXPECT_NE(sounds_of("--version").find("v'3:"), std::string::npos) << sounds_of("--version");
}

}  // namespace
}  // namespace tavernook
