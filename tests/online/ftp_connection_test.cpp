#include "online/ftp_connection.h"
#include "support/ftp_server.h"
#include "support/temp_app_dir.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

// A host that offers TLS is logged in to over TLS, its certificate checked: this one takes no plain login.
TEST(FtpConnection, AHostOfferingTlsIsLoggedInToOverTls)
{
    test::TempAppDir dir;
    const std::filesystem::path data = QV_TEST_DATA_DIR "/ftp";
    test::FtpServerProcess ftp(dir.path(), "user1", "secret1", data / "loopback_tls.pem");
    ASSERT_TRUE(ftp.running());

    FtpConnection trusting(ftp.server(), "user1", "secret1", { 5, {}, data / "loopback_ca.pem" });
    EXPECT_TRUE(trusting.log_in(5)) << trusting.last_error();
    EXPECT_TRUE(trusting.make_directory("club7"));
    EXPECT_TRUE(std::filesystem::is_directory(dir.path() / "club7"));

    FtpConnection doubting(ftp.server(), "user1", "secret1", { 5, {}, {} });
    EXPECT_FALSE(doubting.log_in(5)) << "the test host's certificate is not one the system trusts";
}

} // namespace
} // namespace qv
