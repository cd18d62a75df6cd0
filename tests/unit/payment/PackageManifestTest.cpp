// SPDX-License-Identifier: Apache-2.0
#include "platform/payment/PackageManifest.h"

#include <tamo/Exception.h>

#include <gtest/gtest.h>

#include <string>

using tamo::platform::PackageManifest;

namespace {

/** The application's id, or what is thrown, as text. */
std::string idOf(const std::string& manifest)
{
    try {
        // Exactly as long, for a sanitizer to see.
        const std::vector<char> text(manifest.begin(), manifest.end());
        return PackageManifest::applicationId({text.data(), text.size()}).toStdString();
    } catch (const tamo::Exception&) {
        return "throws";
    }
}

const std::string name = "Package-Name: mypackage\n";
const std::string id = "Package-Id: abc123\n";

TEST(PackageManifestTest, NameAndIdAreJoinedByAPoint)
{
    EXPECT_EQ(idOf(name + id + "Application-Name: Demo\n"), "mypackage.abc123");
}

TEST(PackageManifestTest, OtherOrdersOtherKeysAndAllLineEndsAreRead)
{
    EXPECT_EQ(idOf(id + name), "mypackage.abc123");
    EXPECT_EQ(idOf("Manifest-Version: 1.0\n" + name + "Package-Version: 2\n" + id),
              "mypackage.abc123");
    EXPECT_EQ(idOf("Package-Name: mypackage\r\nPackage-Id: abc123\r\n"), "mypackage.abc123");
    EXPECT_EQ(idOf("Package-Name: mypackage\rPackage-Id: abc123\r"), "mypackage.abc123");
    EXPECT_EQ(idOf("\n\r\n" + name + "\n\n\r\n" + id + "\n"), "mypackage.abc123");
    EXPECT_EQ(idOf("Package-Name: mypackage\nPackage-Id: abc123"), "mypackage.abc123");
}

TEST(PackageManifestTest, WhatIsMissingIsRefused)
{
    EXPECT_EQ(idOf(name + "Application-Name: Demo\n"), "throws");
    EXPECT_EQ(idOf(id + "Application-Name: Demo\n"), "throws");
    EXPECT_EQ(idOf(""), "throws");
    EXPECT_EQ(idOf("\n\r\n"), "throws");
    EXPECT_EQ(idOf("Package-Name"), "throws");
    EXPECT_EQ(idOf("Package-Name:"), "throws");
    EXPECT_EQ(idOf("Package-Name: "), "throws");
    EXPECT_EQ(idOf(id + "Package-Name: "), "throws");
    EXPECT_EQ(idOf(name + "Package-Id: \n"), "throws");
    EXPECT_EQ(idOf(name + "Package-Id: \n\r\n\n"), "throws");
}

TEST(PackageManifestTest, NothingIsSeenAfterTheApplicationsName)
{
    EXPECT_EQ(idOf(name + "Application-Name: Demo\n" + id), "throws");
    EXPECT_EQ(idOf(name + id + "Application-Name: Demo\nPackage-Id: other\n"), "mypackage.abc123");
    EXPECT_EQ(idOf(name + id + "Application-Name: Demo\n:"), "mypackage.abc123");
    EXPECT_EQ(idOf(name + id + "Application-Name: "), "mypackage.abc123");
}

TEST(PackageManifestTest, LineThatIsCutOffBehindItsKeyIsRefused)
{
    EXPECT_EQ(idOf(name + id + "Application-Name:"), "throws");
    EXPECT_EQ(idOf(name + id + "Application-Name"), "throws");
    EXPECT_EQ(idOf(name + id + "Other: "), "mypackage.abc123");
}

TEST(PackageManifestTest, KeyAndValueBeginBehindTheirSeparators)
{
    EXPECT_EQ(idOf("::" + name + id), "mypackage.abc123");
    EXPECT_EQ(idOf(name + id + ":"), "throws");
    // An empty value is no value: the next line is taken for it.
    EXPECT_EQ(idOf("Package-Name: \nfirst\nPackage-Id: abc123\n"), "first.abc123");
    EXPECT_EQ(idOf("Package-Name: \nPackage-Id: abc123\n"), "throws");
    // Any one character stands behind the colon.
    EXPECT_EQ(idOf("Package-Name:\tmypackage\n" + id), "mypackage.abc123");
    EXPECT_EQ(idOf("Package-Name:mypackage\n" + id), "ypackage.abc123");
    EXPECT_EQ(idOf("Package-Name:  mypackage \n" + id), " mypackage .abc123");
    // A line without a colon belongs to the next key.
    EXPECT_EQ(idOf("no colon\n" + name + id), "throws");
    EXPECT_EQ(idOf("package-name: mypackage\n" + id), "throws");
}

TEST(PackageManifestTest, ValueMayHoldColons)
{
    EXPECT_EQ(idOf("Package-Name: a:b: c\n" + id), "a:b: c.abc123");
}

TEST(PackageManifestTest, LastOfSeveralCounts)
{
    EXPECT_EQ(idOf(name + id + "Package-Name: other\n"), "other.abc123");
}

TEST(PackageManifestTest, LongValuesAreCut)
{
    for (const std::size_t length : {51U, 52U, 53U, 1900U}) {
        const std::string expected(std::min<std::size_t>(length, 52), 'n');
        EXPECT_EQ(idOf("Package-Name: " + std::string(length, 'n') + "\n" + id),
                  expected + ".abc123");
    }
    for (const std::size_t length : {28U, 29U, 30U, 1900U}) {
        const std::string expected(std::min<std::size_t>(length, 29), 'i');
        EXPECT_EQ(idOf(name + "Package-Id: " + std::string(length, 'i') + "\n"),
                  "mypackage." + expected);
    }
}

TEST(PackageManifestTest, LongValueIsCutBetweenCharacters)
{
    const std::string umlaut = "\xc3\xa4";
    EXPECT_EQ(idOf("Package-Name: " + std::string(51, 'n') + umlaut + "\n" + id),
              std::string(51, 'n') + ".abc123");
    EXPECT_EQ(idOf("Package-Name: " + std::string(50, 'n') + umlaut + "\n" + id),
              std::string(50, 'n') + umlaut + ".abc123");
}

TEST(PackageManifestTest, TextEndsAtAZero)
{
    EXPECT_EQ(idOf(name + std::string(1, '\0') + id), "throws");
    EXPECT_EQ(idOf(name + id + std::string(1, '\0') + "::"), "mypackage.abc123");
}

TEST(PackageManifestTest, EveryTruncationIsReadOrRefused)
{
    const std::string whole = "Manifest-Version: 1\r\n" + name + id;
    const std::size_t complete = whole.find("abc123");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string expected =
            length <= complete
                ? "throws"
                : "mypackage." +
                      whole.substr(complete, std::min<std::size_t>(length - complete, 6));
        EXPECT_EQ(idOf(whole.substr(0, length)), expected) << length;
    }
}

} // namespace
