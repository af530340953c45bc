// A folder with pages, and a view of them over the real engine.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

#include "fakes/temp_folder.h"
#include "gui_support/waiting.h"
#include "platform_qt/web_library.h"

class QPrinter;
class QWidget;

namespace tavernook {

// The library as the program loads it, once for all tests.
WebLibrary& web_library();

class WebTest : public testing::Test {
  protected:
    WebTest();

    // A page of the folder, written and shown; whether it was.
    bool show(const std::string& bytes, const std::string& name = "page.htm");
    bool navigate(const std::string& path);

    std::optional<std::string> read();
    bool prints(const std::shared_ptr<QPrinter>& printer);

    // The page may be typed into when this comes back.
    void edit();

    // What takes the keys and clicks.
    QWidget& drawn_page();

    // Into the upper left corner of the page.
    void click_and_type(const QString& text);

    TempFolder folder;
    std::unique_ptr<HtmlView> view;
};

// A page around a body, as the lists have it.
std::string page_around(const std::string& body);

// As a PNG of that many dots.
std::string small_png(int width = 3, int height = 2);

int occurrences(const std::string& text, const std::string& part);

}  // namespace tavernook
