#include <gtest/gtest.h>

#include "forms/win32/devices/FileErrors.h"

namespace forms::win32 {

TEST(FileErrorsTest, CodesOfTheSystemHaveTheirNumbers) {
    EXPECT_EQ(ErrorOfCode(ERROR_DISK_FULL), base::ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorOfCode(ERROR_HANDLE_DISK_FULL), base::ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorOfCode(ERROR_SHARING_VIOLATION), base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOfCode(ERROR_LOCK_VIOLATION), base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOfCode(ERROR_ACCESS_DENIED), base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOfCode(ERROR_PATH_NOT_FOUND), base::ErrorNumber::PathNotFound);
    EXPECT_EQ(ErrorOfCode(ERROR_FILE_NOT_FOUND), base::ErrorNumber::FileNotFound);
    EXPECT_EQ(ErrorOfCode(ERROR_INVALID_NAME), base::ErrorNumber::BadFileName);
    constexpr DWORD cloudProviderNotRunning = 362;
    EXPECT_EQ(ErrorOfCode(cloudProviderNotRunning), base::ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOfCode(ERROR_CRC), base::ErrorNumber::DeviceIoError);
}

}  // namespace forms::win32
