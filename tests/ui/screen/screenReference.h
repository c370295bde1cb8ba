// Reference images of the screen tests: a window's pixels compared with a PNG kept next to the
// tests, tests/ui/screen/reference/NAME.png.
#pragma once

#include "uiWindow.h"
#include "wsScreenshot.h"
#include "wsWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace Zr {

// Compares a window's pixels with tests/ui/screen/reference/NAME.png, each channel within
// `tolerance`. A missing reference, or ZR_UPDATE_REFERENCES=1, writes the image there instead
// and fails, so that a new reference is looked at before it is committed.
inline void expectMatchesReference(UiWindow& w, std::vector<std::uint8_t> const& px,
                                   char const* name, int tolerance = 2) {
    GeRectangle<int> const g = w.getOSWindow()->getGeometry();
    std::filesystem::path const file =
        std::filesystem::path(__FILE__).parent_path() / "reference" / (std::string(name) + ".png");
    char const* update = std::getenv("ZR_UPDATE_REFERENCES");
    if (!std::filesystem::exists(file) || (update && std::string(update) == "1")) {
        std::filesystem::create_directories(file.parent_path());
        WsScreenshot::writePng(px, g.width(), g.height(), OsFilePath(file.string()));
        FAIL() << "Wrote the reference " << file << "; look at it, then run again";
    }
    int width = 0, height = 0;
    std::vector<std::uint8_t> const ref =
        WsScreenshot::readPng(OsFilePath(file.string()), width, height);
    ASSERT_EQ(width, g.width());
    ASSERT_EQ(height, g.height());
    ASSERT_EQ(ref.size(), px.size());
    int worst = 0, differing = 0;
    for (std::size_t i = 0; i < px.size(); ++i) {
        int const d = std::abs(int(px[i]) - int(ref[i]));
        worst = std::max(worst, d);
        differing += d > tolerance ? 1 : 0;
    }
    EXPECT_EQ(differing, 0) << name << ": " << differing
                            << " channel values differ from the reference by more than "
                            << tolerance << " (worst " << worst << ")";
}

} // namespace Zr
