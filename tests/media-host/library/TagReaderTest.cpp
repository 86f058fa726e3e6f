// Tags of real files, made by ffmpeg, and of files that are none.
#include "hosts/media/library/TagReader.h"

#include "hosts/media/library/TagProcess.h"
#include "platform/toolkit/rendering/ImageFile.h"
#include "tests/support/MusicFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <ctime>
#include <fstream>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/unsynchronizedlyricsframe.h>

#include <sys/stat.h>

namespace playback {
namespace {

class TagReaderTest : public testing::Test {
protected:
    std::filesystem::path pathOf(const std::string& name) const { return directory.path() / name; }
    std::filesystem::path make(const std::string& name, const support::MusicFile& file) const {
        support::makeMusicFile(pathOf(name), file);
        return pathOf(name);
    }
    std::filesystem::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(pathOf(name), std::ios::binary) << bytes;
        return pathOf(name);
    }
    std::filesystem::path makeCover() const {
        const auto path = pathOf("cover.jpg");
        const auto made =
            support::ChildProcess::run({"/usr/bin/ffmpeg", "-nostdin", "-y", "-loglevel", "error", "-f",
                                        "lavfi", "-i", "color=red:size=32x24", "-frames:v", "1", path});
        EXPECT_EQ(made.exitCode, 0) << made.errors;
        return path;
    }
    /// Everything that may be asked of a hostile file.
    static void readAll(const std::filesystem::path& path) {
        readTags(path);
        readCover(path);
        readLyrics(path);
    }

    tests::TemporaryDirectory directory;
};

class TagsOfEveryKind : public TagReaderTest, public testing::WithParamInterface<const char*> {};

TEST_P(TagsOfEveryKind, AreRead) {
    const auto path = make(std::string("Song.") + GetParam(), {.seconds = 2,
                                                               .tags = {{"title", "Ein Stück"},
                                                                        {"artist", "Künstlerin"},
                                                                        {"album", "Álbum"},
                                                                        {"album_artist", "Various"},
                                                                        {"track", "7"},
                                                                        {"disc", "2"},
                                                                        {"genre", "Folk"},
                                                                        {"composer", "Somebody"}}});
    const auto tags = readTags(path);
    ASSERT_TRUE(tags);
    EXPECT_EQ(tags->title, "Ein Stück");
    EXPECT_EQ(tags->artist, "Künstlerin");
    EXPECT_EQ(tags->album, "Álbum");
    EXPECT_EQ(tags->albumArtist, "Various");
    EXPECT_EQ(tags->composer, "Somebody");
    EXPECT_EQ(tags->genre, "Folk");
    EXPECT_EQ(tags->trackNumber, 7u);
    EXPECT_EQ(tags->discNumber, 2u);
    EXPECT_NEAR(tags->duration, 2, 0.1);
    EXPECT_FALSE(tags->hasCover);
    EXPECT_FALSE(readLyrics(path));
    EXPECT_TRUE(readCover(path).empty());
}
INSTANTIATE_TEST_SUITE_P(TagReader, TagsOfEveryKind, testing::Values("mp3", "flac", "ogg", "opus", "m4a"));

TEST_F(TagReaderTest, KnowsAudioFilesByTheirNames) {
    for (const char* name : {"a.mp3", "B.MP3", "c.flac", "d.ogg", "e.opus", "f.M4a", "g.wav"})
        EXPECT_TRUE(isAudioFileName(name)) << name;
    for (const char* name : {"mp3", ".mp3", "a.txt", "a.mp3.part", "cover.jpg", ""})
        EXPECT_FALSE(isAudioFileName(name)) << name;
}

class CoversOfEveryKind : public TagReaderTest, public testing::WithParamInterface<const char*> {};

TEST_P(CoversOfEveryKind, AreFound) {
    const auto path = make(std::string("Song.") + GetParam(), {.cover = makeCover()});
    const auto tags = readTags(path);
    ASSERT_TRUE(tags);
    EXPECT_TRUE(tags->hasCover);
    const auto picture = toolkit::decodeImage(readCover(path), 1);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->pixelWidth(), 32);
    EXPECT_EQ(picture->pixelHeight(), 24);
}
INSTANTIATE_TEST_SUITE_P(TagReader, CoversOfEveryKind, testing::Values("mp3", "flac", "m4a"));

TEST_F(TagReaderTest, FindsWordsAndCoverOfTheProjectsOwnSongs) {
    const std::filesystem::path path =
        VELA_SOURCE_DIR "/resources/music/songs/Nora Vell/Slow Water/01 Harbour Lights.opus";
    const auto tags = readTags(path);
    ASSERT_TRUE(tags);
    EXPECT_EQ(tags->title, "Harbour Lights");
    EXPECT_EQ(tags->artist, "Nora Vell");
    EXPECT_GT(tags->duration, 20);
    EXPECT_LT(tags->duration, 60);
    EXPECT_TRUE(toolkit::decodeImage(readCover(path), 1));
    const auto words = readLyrics(path);
    ASSERT_TRUE(words);
    EXPECT_THAT(*words, testing::StartsWith("The last boat folds its sails away,\n"));
}

class WordsOfEveryKind : public TagReaderTest, public testing::WithParamInterface<const char*> {};

TEST_P(WordsOfEveryKind, AreRead) {
    const auto path = make(std::string("Song.") + GetParam(), {.tags = {{"lyrics", "One\r\nTwo\rThree"}}});
    EXPECT_EQ(readLyrics(path), "One\nTwo\nThree");
}
INSTANTIATE_TEST_SUITE_P(TagReader, WordsOfEveryKind, testing::Values("flac", "ogg", "m4a"));

TEST_F(TagReaderTest, ReadsWordsOfMp3Files) {
    const auto path = make("Song.mp3", {});
    {
        TagLib::MPEG::File file(path.c_str());
        auto* words = new TagLib::ID3v2::UnsynchronizedLyricsFrame(TagLib::String::UTF8);
        words->setDescription("as sung");
        words->setText(TagLib::String("Größe\nOne\n", TagLib::String::UTF8));
        file.ID3v2Tag(true)->addFrame(words); // owned by the tag
        file.save();
    }
    EXPECT_EQ(readLyrics(path), "Größe\nOne");
}

TEST_F(TagReaderTest, KeepsTagsShort) {
    std::string title(3000, 'x');
    for (int index = 0; index < 3000; ++index)
        title += "ü";
    const auto tags = readTags(make("Song.flac", {.tags = {{"title", title}, {"track", "99999999"}}}));
    ASSERT_TRUE(tags);
    EXPECT_LE(tags->title.size(), 4096u);
    EXPECT_GE(tags->title.size(), 4090u);
    EXPECT_TRUE(tags->title.ends_with("ü")) << "cut between two characters";
    EXPECT_EQ(tags->trackNumber, 0u);
}

TEST_F(TagReaderTest, AnswersNothingForWhatIsNoSong) {
    EXPECT_FALSE(readTags(pathOf("missing.mp3")));
    EXPECT_FALSE(readTags(write("empty.mp3", "")));
    EXPECT_FALSE(readTags(write("text.flac", "This is no music at all.")));
    EXPECT_FALSE(readTags(write("zeros.m4a", std::string(10000, '\0'))));
    std::filesystem::create_directory(pathOf("directory.mp3"));
    EXPECT_FALSE(readTags(pathOf("directory.mp3")));
    ASSERT_EQ(mkfifo(pathOf("pipe.mp3").c_str(), 0600), 0);
    EXPECT_FALSE(readTags(pathOf("pipe.mp3")));
    EXPECT_FALSE(readTags("/dev/zero"));
}

TEST_F(TagReaderTest, SurvivesDamagedFiles) {
    std::mt19937 random(7);
    for (const char* kind : {"mp3", "flac", "ogg", "opus", "m4a", "wav"}) {
        const auto path =
            make(std::string("whole.") + kind, {.seconds = 0.3, .tags = {{"title", "T"}, {"lyrics", "L"}}});
        std::ifstream file(path, std::ios::binary);
        const std::string whole{std::istreambuf_iterator<char>(file), {}};
        for (int round = 0; round < 60; ++round) {
            std::string damaged = whole.substr(0, round % 3 == 0 ? random() % whole.size() : whole.size());
            for (int change = 0; change < 40 && !damaged.empty(); ++change)
                damaged[random() % std::min<std::size_t>(damaged.size(), 4096)] = static_cast<char>(random());
            readAll(write(std::string("damaged.") + kind, damaged));
        }
    }
}

TEST_F(TagReaderTest, ReadsTheSameInAProcessOfItsOwn) {
    const auto path = make("Song.mp3", {.tags = {{"title", "Title"}, {"artist", "Artist"}, {"track", "3"}},
                                        .cover = makeCover()});
    TagProcess reader;
    ASSERT_TRUE(readTags(path));
    EXPECT_EQ(reader.read(path), readTags(path));
    EXPECT_FALSE(reader.read(pathOf("missing.mp3")));
    EXPECT_EQ(reader.read(path), readTags(path)) << "by the same process";
}

std::string synchsafe(std::uint32_t value) {
    std::string bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes += static_cast<char>(value >> shift & 0x7F);
    return bytes;
}

/// Of this process's own, whatever else the machine does.
double secondsOfWorkSince(std::clock_t before) {
    return static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
}

TEST_F(TagReaderTest, ReadsNoMoreOfAHugeTagThanItsShare) {
    const auto path = write("huge.mp3", std::string("ID3\x04\0\0", 6) + synchsafe(200'000'000));
    std::filesystem::resize_file(path, 300'000'000); // a hole, which costs the disk nothing
    const auto before = std::clock();
    readAll(path);
    EXPECT_LT(secondsOfWorkSince(before), 10);
}

TEST_F(TagReaderTest, GivesUpOnGigabytesWithoutASound) {
    const auto path = write("nothing.mp3", std::string(1000, 'x'));
    std::filesystem::resize_file(path, 5'000'000'000);
    const auto before = std::clock();
    EXPECT_FALSE(readTags(path));
    EXPECT_LT(secondsOfWorkSince(before), 10);
}

TEST_F(TagReaderTest, SurvivesBoxesWithinBoxesWithoutEnd) {
    // Each box of an MP4 file says that it holds all the rest.
    std::string nested;
    constexpr std::uint32_t levels = 200'000;
    const auto box = [](std::uint32_t size, const char* name) {
        std::string bytes;
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>(size >> shift);
        return bytes + name;
    };
    nested += box(16, "ftyp") + "M4A \0\0\0\0";
    nested.resize(16);
    for (std::uint32_t level = 0; level < levels; ++level)
        nested += box((levels - level) * 8, "moov");
    const auto path = write("nested.m4a", nested);
    TagProcess reader;
    EXPECT_FALSE(reader.read(path));
    EXPECT_TRUE(reader.read(make("Song.m4a", {}))) << "by another process";
}

TEST_F(TagReaderTest, SurvivesChaptersWithinChaptersWithoutEnd) {
    // Each chapter's frame holds another chapter.
    constexpr std::uint32_t levels = 20'000;
    const std::string fixed = std::string("a\0", 2) + std::string(16, '\0');
    const std::uint32_t each = 10 + static_cast<std::uint32_t>(fixed.size());
    std::string frames;
    for (std::uint32_t level = 0; level < levels; ++level)
        frames += "CHAP" + synchsafe((levels - level) * each - 10) + std::string(2, '\0') + fixed;
    const auto path = write("chapters.mp3", std::string("ID3\x04\0\0", 6) +
                                                synchsafe(static_cast<std::uint32_t>(frames.size())) +
                                                frames + std::string(2000, '\0'));
    TagProcess reader;
    EXPECT_FALSE(reader.read(path));
}

} // namespace
} // namespace playback
