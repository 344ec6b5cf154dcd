#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "common/Error.h"
#include "common/TextStream.h"
#include "fakes/FakeCodePage.h"
#include "fakes/FakeFileSystem.h"

namespace korvanta {

// The files that text streams are read from and written to.
class TextStreamFixture : public testing::Test {
  protected:
    // The number of the Error that the call raises, 0 when it raises none.
    template <class Call>
    static std::int32_t ErrorOf(Call call) {
        try {
            call();
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    fakes::FakeClock clock;
    fakes::FakeFileSystem files{clock};
    fakes::FakeCodePage codePage;
};

}  // namespace korvanta
