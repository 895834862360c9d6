#include "storage/input_file.h"

#include "storage/held_file.h"
#include "storage/output_file.h"
#include "support/story.h"

namespace {

const std::string path = "C:\\data\\a.tsj";

std::string Pattern(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i % 251);
    return bytes;
}

// Pieces that fit the blocks of the reader and the writer, that cross their borders, and that are larger than they are.
TEST(BlockFiles, TakePiecesOfAnySize) {
    constexpr std::size_t sizes[] = {10, 300'000, 1, 131'072, 131'073, 65'535, 0, 500'000, 7};
    simulated::PutFolder("C:\\data");
    std::string all;
    OutputFile output(path);
    for (const std::size_t size : sizes) {
        const std::string piece = Pattern(size);
        piece.copy(output.Room(size), size);
        all += piece;
    }
    output.Commit();
    ASSERT_EQ(simulated::FileBytes(path), all);
    InputFile input(path);
    for (const std::size_t size : sizes) {
        EXPECT_EQ(std::string(input.Take(size), size), Pattern(size)) << size;
    }
    EXPECT_THROW(input.Take(1), RuntimeFailure);
}

TEST(BlockFiles, RefuseAPieceThatIsLongerThanTheRest) {
    simulated::PutFile(path, Pattern(400'000));
    InputFile input(path);
    input.Take(100'000);
    EXPECT_THROW(input.Take(300'001), RuntimeFailure);
    EXPECT_EQ(std::string(input.Take(300'000), 300'000), Pattern(400'000).substr(100'000)) << "nothing was lost";
}

// A scanner or a backup holds a file for a moment; one that is gone is not waited for.
TEST(HeldFiles, AreWaitedForUpToTwoSeconds) {
    const std::tuple<std::int64_t, platform::FileState, std::int64_t> cases[] = {
        {0, platform::FileState::Readable, 0},
        {500, platform::FileState::Readable, 500},
        {1'990, platform::FileState::Readable, 2'000},
        {simulated::ForEver, platform::FileState::Held, 2'000}};
    for (const auto& [heldFor, found, waited] : cases) {
        SCOPED_TRACE(heldFor);
        simulated::PutFile(path, "bytes");
        const std::int64_t start = platform::TickCount();
        const bool forEver = heldFor == simulated::ForEver;
        simulated::LockFileAgainstReaders(path, forEver ? heldFor : start + heldFor);
        EXPECT_EQ(StateOnceFree(path), found);
        EXPECT_EQ(platform::TickCount() - start, waited);
        if (forEver) {
            EXPECT_THROW(InputFile{path}, RuntimeFailure);
        }
    }
    const std::int64_t start = platform::TickCount();
    EXPECT_EQ(StateOnceFree("C:\\data\\none"), platform::FileState::Missing);
    EXPECT_EQ(platform::TickCount(), start);
}

}  // namespace
