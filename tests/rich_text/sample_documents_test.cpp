// The documents of the sample household's recipes.
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTextList>

#include "rich_text/rtf_testing.h"

namespace tavernook::rtf {
namespace {

std::vector<std::filesystem::path> sample_documents() {
    std::vector<std::filesystem::path> found;
    const std::filesystem::path folder = TAVERNOOK_SOURCE_FOLDER "/assets/sample/recipes";
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        found.push_back(entry.path());
    }
    return found;
}

int list_entries(const QTextDocument& document, bool numbered) {
    int entries = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextList* list = block.textList();
        if (list == nullptr) continue;
        const bool is_numbered = list->format().style() == QTextListFormat::ListDecimal;
        entries += is_numbered == numbered ? 1 : 0;
    }
    return entries;
}

TEST(SampleDocuments, AllAreReadWithHeadingIngredientsStepsAndTip) {
    const auto documents = sample_documents();
    ASSERT_EQ(documents.size(), 28U);
    for (const auto& path : documents) {
        SCOPED_TRACE(path);
        QTextDocument document;
        ASSERT_NO_THROW(read(file_bytes(path), document));
        const QTextCharFormat heading = document.begin().begin().fragment().charFormat();
        EXPECT_EQ(heading.fontWeight(), QFont::Bold);
        EXPECT_EQ(heading.fontPointSize(), 18);
        EXPECT_EQ(heading.fontFamilies().toStringList().value(0), "Arial");
        EXPECT_GE(list_entries(document, false), 4);
        EXPECT_GE(list_entries(document, true), 4);
        EXPECT_TRUE(document.lastBlock().text().startsWith("Tip: "));
        EXPECT_LT(document.toPlainText().size(), 3000);
    }
}

TEST(SampleDocuments, ArePlainRichTextOfSmallSize) {
    for (const auto& path : sample_documents()) {
        SCOPED_TRACE(path);
        const std::string bytes = file_bytes(path);
        EXPECT_LT(bytes.size(), 20'000U);
        EXPECT_EQ(bytes.substr(0, 24), "{\\rtf1\\ansi\\ansicpg1252\\");
        for (const char byte : bytes) {
            ASSERT_TRUE((byte >= ' ' && byte < 0x7F) || byte == '\n') << static_cast<int>(byte);
        }
    }
}

TEST(SampleDocuments, FourHavePictures) {
    int pictures = 0;
    for (const auto& path : sample_documents()) {
        QTextDocument document;
        read(file_bytes(path), document);
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                pictures += part.fragment().charFormat().isImageFormat() ? 1 : 0;
            }
        }
    }
    EXPECT_EQ(pictures, 4);
}

TEST(SampleDocuments, TemperaturesStandInBothScales) {
    QTextDocument document;
    read(file_bytes(TAVERNOOK_SOURCE_FOLDER "/assets/sample/recipes/apple_crisp.rtf"), document);
    EXPECT_TRUE(document.toPlainText().contains(QString::fromUtf8("375 °F (190 °C)")));
}

TEST(SampleDocuments, AnotherReaderFindsTheSameWords) {
    const QString converter = QStandardPaths::findExecutable(QStringLiteral("unrtf"));
    if (converter.isEmpty()) GTEST_SKIP() << "unrtf is not installed";
    for (const auto& path : sample_documents()) {
        SCOPED_TRACE(path);
        QTextDocument document;
        read(file_bytes(path), document);
        QProcess process;
        process.setWorkingDirectory(QDir::tempPath());
        process.start(converter, {"--text", "--nopict", QString::fromStdString(path.string())});
        ASSERT_TRUE(process.waitForFinished(-1));
        EXPECT_EQ(process.exitCode(), 0);
        const QString converted = QString::fromLatin1(process.readAllStandardOutput());
        const QString title = document.begin().text();
        EXPECT_TRUE(converted.contains(title));
        EXPECT_TRUE(converted.contains("Ingredients"));
        EXPECT_TRUE(converted.contains(document.lastBlock().text()));
    }
}

}  // namespace
}  // namespace tavernook::rtf
