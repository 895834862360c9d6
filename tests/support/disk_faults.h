// Walks every single file operation of a save and lets it fail, or the power fail with it. Whatever happens, the target
// must afterwards be the whole old or the whole new file.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "base/runtime_failure.h"
#include "platform/simulated/files.h"
#include "storage/temporary_name.h"

struct SaveUnderFaults {
    std::string path;
    std::string oldBytes;
    std::string newBytes;
    std::function<void()> save;
};

// One save with a failure at the n-th operation. False when the save has fewer operations.
inline bool SaveWithFaultAt(const SaveUnderFaults& test, std::int64_t n, simulated::Fault fault) {
    simulated::RestartDisk();
    simulated::PutFile(test.path, test.oldBytes);
    const std::int64_t before = simulated::FileOperations();
    simulated::FailAtOperation(n, fault);
    bool saved = true;
    try {
        test.save();
    } catch (const RuntimeFailure& failure) {
        saved = false;
        EXPECT_EQ(failure.Kind(), FailureKind::File);
        EXPECT_NE(std::string(failure.what()).find(test.path), std::string::npos) << failure.what();
    }
    const bool reached = simulated::FileOperations() - before >= n;
    simulated::RestartDisk();
    const std::string found = simulated::FileBytes(test.path).value_or("(no file)");
    if (saved) {
        EXPECT_EQ(found, test.newBytes);
    } else {
        EXPECT_TRUE(found == test.oldBytes || found == test.newBytes) << "torn: " << found.size() << " bytes";
    }
    return reached;
}

inline void SurvivesEveryFault(const SaveUnderFaults& test) {
    RemoveLeftovers(test.path.substr(0, test.path.rfind('\\')));  // of the power cuts of an earlier walk
    for (const simulated::Fault fault : {simulated::Fault::Failure, simulated::Fault::PowerCut}) {
        const std::size_t files = simulated::AllFiles().size() + (simulated::FileBytes(test.path) ? 0 : 1);
        std::int64_t n = 1;
        while (SaveWithFaultAt(test, n, fault)) {
            SCOPED_TRACE("operation " + std::to_string(n));
            // A power cut may leave a temporary file; a failure that the program lives through may not.
            if (fault == simulated::Fault::Failure) {
                EXPECT_EQ(simulated::AllFiles().size(), files);
            }
            if (::testing::Test::HasFailure()) return;
            ++n;
        }
        EXPECT_GE(n, 5);  // a save creates, writes, flushes, closes and moves at least
    }
}
