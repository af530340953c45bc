// Encrypted sessions and the certificates of their servers.
#include <cstdlib>
#include <gtest/gtest.h>

#include "platform_services/ftp_fixture.h"

namespace tavernook {
namespace {

class EncryptedFtp : public FtpTest {
  protected:
    void SetUp() override {
        FtpTest::SetUp();
        if (IsSkipped()) return;
        if (!python_has("OpenSSL")) {
            GTEST_SKIP() << "python3-openssl is not installed";
        }
        const std::string make =
            "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=localhost"
            " -addext subjectAltName=DNS:localhost,IP:127.0.0.1 -keyout '" +
            certificate + "' -out '" + trusted + "' 2>/dev/null && cat '" + trusted + "' >>'" +
            certificate + "'";
        if (std::system(make.c_str()) != 0) GTEST_SKIP() << "openssl is not installed";
    }
    int publish_encrypted(const std::string& trust) {
        FtpSettings careful = settings();
        careful.certificates = trust;
        CurlFtpSession one(careful);
        FtpAccount encrypted = account();
        encrypted.server = "ftps://" + encrypted.server;
        try {
            one.open(encrypted, events());
            one.change_directory("pantry");
            one.put_file("list.htm", page);
            one.close();
        } catch (const Fault& fault) {
            description = fault.description;
            return fault.number;
        }
        return 0;
    }
    std::string certificate = platform.path("server.pem");
    std::string trusted = platform.path("trusted.pem");
};

TEST_F(EncryptedFtp, FilesArriveWhole) {
    serve({"certificate=" + certificate});
    EXPECT_EQ(publish_encrypted(trusted), 0) << description;
    EXPECT_EQ(sent("pantry/list.htm"), "<p>Flour</p>");
    EXPECT_TRUE(said("AUTH "));
}

TEST_F(EncryptedFtp, ACertificateThatNobodyVouchesForIsRefused) {
    serve({"certificate=" + certificate});
    EXPECT_EQ(publish_encrypted(""), ftp_fault::not_trusted);
    EXPECT_TRUE(description.starts_with("The server is not the one that it says it is: SSL "))
        << description;
    EXPECT_FALSE(said("PASS"));
}

TEST_F(EncryptedFtp, AServerWithoutEncryptionNeverHearsThePassword) {
    serve();
    EXPECT_EQ(publish_encrypted(trusted), ftp_fault::not_encrypted) << description;
    EXPECT_FALSE(said("USER"));
    EXPECT_FALSE(said("PASS"));
}

}  // namespace
}  // namespace tavernook
