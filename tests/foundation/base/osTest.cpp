// Paths, files, environment variables and the resources directory.
#include "inPaths.h"
#include "osEnv.h"
#include "osFile.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Zr;

TEST(OsFilePathTest, JoinAlwaysDescends) {
    OsFilePath p("res");
    p += OsFilePath("icons");
    p += "/ok.tif";
    EXPECT_EQ("res/icons/ok.tif", p.toString());
    EXPECT_EQ("/a/b", (OsFilePath("/a") + OsFilePath("b")).toString());
    EXPECT_EQ("x/y", (OsFilePath() + OsFilePath("x/y")).toString());
    EXPECT_STREQ("res/icons/ok.tif", p.getChars());
}

TEST(OsFilePathTest, BaseNamesAndDirectories) {
    OsFilePath p(std::wstring(L"/data/resTables/colorDefs.xml"));
    EXPECT_EQ("colorDefs.xml", p.getBaseName(OsFilePath::WithExtension));
    EXPECT_EQ("colorDefs", p.getBaseName(OsFilePath::WithoutExtension));
    EXPECT_EQ(".xml", p.getExtension());
    EXPECT_EQ("/data/resTables", p.getDirectoryName().toString());
    EXPECT_EQ("archive.tar",
              OsFilePath("a/archive.tar.gz").getBaseName(OsFilePath::WithoutExtension));
    EXPECT_EQ("dir", OsFilePath("a/dir/").getBaseName());
    EXPECT_EQ("a", OsFilePath("a/dir/").getDirectoryName().toString());
    EXPECT_EQ("", OsFilePath("file").getDirectoryName().toString());
    EXPECT_FALSE(p.isRelative());
    EXPECT_TRUE(OsFilePath("a/b").isRelative());
}

TEST(OsFilePathTest, ComparisonAndDump) {
    EXPECT_EQ(OsFilePath("a/b"), OsFilePath(std::string("a/b")));
    EXPECT_LT(OsFilePath("a/b"), OsFilePath("a/c"));
    EXPECT_NE(OsFilePath("a"), OsFilePath("b"));
    EXPECT_EQ(0, OsFilePath("x").compare(OsFilePath("x")));
    EXPECT_GT(OsFilePath("b").compare(OsFilePath("a")), 0);
    std::ostringstream os;
    OsFilePath("a/b").dump(os);
    EXPECT_EQ("OsFilePath: a/b", os.str());
}

TEST(OsFileTest, InfoOfFilesDirectoriesAndMissingPaths) {
    OsFilePath tmp = OsFilePath::getTempDir();
    EXPECT_TRUE(OsFsUtils::fileExists(tmp));
    OsFileInfo dirInfo = OsFile(tmp).getInfo();
    EXPECT_TRUE(dirInfo.isDirectory());
    EXPECT_FALSE(dirInfo.isFile());

    OsFile missing(tmp + OsFilePath("zr_osTest_no_such_file"));
    EXPECT_FALSE(missing.exists());
    try {
        missing.getInfo();
        FAIL() << "no exception";
    } catch (OsFileEx::ExNotFound const& e) {
        EXPECT_NE(std::string::npos, e.getReason().find("zr_osTest_no_such_file"));
    }
    EXPECT_NE(std::string::npos, OsFileUtils::getFileInvalidChars().find('/'));
    EXPECT_NE(std::string::npos, OsFileUtils::getFileInvalidChars().find(':'));
}

TEST(OsEnvTest, GetSetAndIntegers) {
    OsEnv::set("ZR_OSTEST_VAR", "0x1F");
    EXPECT_TRUE(OsEnv::isSet("ZR_OSTEST_VAR"));
    EXPECT_EQ("0x1F", OsEnv::get("ZR_OSTEST_VAR").value_or(""));
    EXPECT_EQ(31, OsEnv::getInteger("ZR_OSTEST_VAR").value_or(0));
    OsEnv::unset("ZR_OSTEST_VAR");
    EXPECT_FALSE(OsEnv::get("ZR_OSTEST_VAR").has_value());

    EXPECT_EQ(-12, OsEnv::parseInteger(" -12 ").value_or(0));
    EXPECT_EQ(0xFFFFFFFFll, OsEnv::parseInteger("0xffffffff").value_or(0));
    EXPECT_FALSE(OsEnv::parseInteger("12abc"));
    EXPECT_FALSE(OsEnv::parseInteger(""));
    EXPECT_FALSE(OsEnv::parseInteger("0x"));
    EXPECT_FALSE(OsEnv::parseInteger("99999999999999999999"));
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
