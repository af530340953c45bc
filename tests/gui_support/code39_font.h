// A font that draws barcodes, which no system brings along: made for the tests.
#pragma once

#include <QProcess>
#include <filesystem>
#include <string>

namespace tavernook {

// Writes the font "3 of 9 Barcode" into that file. False where the tools for it are missing.
inline bool make_code39_font(const std::string& path) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    const QString script =
        QStringLiteral(TAVERNOOK_SOURCE_FOLDER "/tests/gui_support/code39_font.py");
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"), {script, QString::fromStdString(path)});
    return python.waitForFinished() && python.exitStatus() == QProcess::NormalExit &&
           python.exitCode() == 0;
}

}  // namespace tavernook
