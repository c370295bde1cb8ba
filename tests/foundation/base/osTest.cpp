// Paths, files, environment variables and the resources directory.
#include "inPaths.h"
#include "osEnv.h"
#include "osFile.h"

#include "support/exceptionReason.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Zr;

TEST(OsFilePathTest, JoinBaseNamesDirectoriesAndComparison) {
    OsFilePath p("res");
    p += OsFilePath("icons");
    p += "/ok.tif";
    EXPECT_EQ("res/icons/ok.tif", p.toString());
    EXPECT_EQ("/a/b", (OsFilePath("/a") + OsFilePath("b")).toString());
    EXPECT_EQ("x/y", (OsFilePath() + OsFilePath("x/y")).toString());

    OsFilePath abs(std::wstring(L"/data/resTables/colorDefs.xml"));
    EXPECT_EQ("colorDefs.xml", abs.getBaseName(OsFilePath::WithExtension));
    EXPECT_EQ("colorDefs", abs.getBaseName(OsFilePath::WithoutExtension));
    EXPECT_EQ(".xml", abs.getExtension());
    EXPECT_EQ("/data/resTables", abs.getDirectoryName().toString());
    EXPECT_EQ("archive.tar",
              OsFilePath("a/archive.tar.gz").getBaseName(OsFilePath::WithoutExtension));
    EXPECT_EQ("dir", OsFilePath("a/dir/").getBaseName());
    EXPECT_EQ("a", OsFilePath("a/dir/").getDirectoryName().toString());
    EXPECT_EQ("", OsFilePath("file").getDirectoryName().toString());
    EXPECT_FALSE(abs.isRelative());
    EXPECT_TRUE(OsFilePath("a/b").isRelative());

    EXPECT_LT(OsFilePath("a/b"), OsFilePath("a/c"));
    EXPECT_GT(OsFilePath("b").compare(OsFilePath("a")), 0);
    std::ostringstream os;
    OsFilePath("a/b").dump(os);
    EXPECT_EQ("OsFilePath: a/b", os.str());
}

TEST(OsFileTest, InfoOfDirectoriesAndMissingPaths) {
    OsFilePath tmp = OsFilePath::getTempDir();
    OsFileInfo dirInfo = OsFile(tmp).getInfo();
    EXPECT_TRUE(dirInfo.isDirectory());
    EXPECT_FALSE(dirInfo.isFile());
    OsFile missing(tmp + OsFilePath("zr_osTest_no_such_file"));
    EXPECT_FALSE(missing.exists());
    EXPECT_NE(std::string::npos, TestSupport::reasonOf<OsFileEx::ExNotFound>([&] {
                                     missing.getInfo();
                                 }).find("zr_osTest_no_such_file"));
    EXPECT_NE(std::string::npos, OsFileUtils::getFileInvalidChars().find('/'));
    EXPECT_NE(std::string::npos, OsFileUtils::getFileInvalidChars().find(':'));
}

TEST(OsEnvTest, GetSetAndIntegers) {
    OsEnv::set("ZR_OSTEST_VAR", "0x1F");
    EXPECT_EQ("0x1F", OsEnv::get("ZR_OSTEST_VAR").value_or(""));
    EXPECT_EQ(31, OsEnv::getInteger("ZR_OSTEST_VAR").value_or(0));
    OsEnv::unset("ZR_OSTEST_VAR");
    EXPECT_FALSE(OsEnv::isSet("ZR_OSTEST_VAR"));
    EXPECT_EQ(-12, OsEnv::parseInteger(" -12 ").value_or(0));
    EXPECT_EQ(0xFFFFFFFFll, OsEnv::parseInteger("0xffffffff").value_or(0));
    for (char const* bad : {"12abc", "", "0x", "99999999999999999999"})
        EXPECT_FALSE(OsEnv::parseInteger(bad)) << bad;
}

TEST(InPathsTest, OverrideThenEnvironmentThenSourceTree) {
    auto saved = OsEnv::get("ZR_RESOURCES_DIR");
    InPaths::setResourcesDir(OsFilePath("/override"));
    EXPECT_EQ("/override", InPaths::getResourcesDir().toString());
    InPaths::setResourcesDir(OsFilePath());
    OsEnv::set("ZR_RESOURCES_DIR", "/from/env");
    EXPECT_EQ("/from/env", InPaths::getResourcesDir().toString());
    OsEnv::unset("ZR_RESOURCES_DIR");
    EXPECT_EQ(OsFilePath(ZR_SOURCE_RESOURCES_DIR), InPaths::getResourcesDir());
    if (saved)
        OsEnv::set("ZR_RESOURCES_DIR", *saved);
}
