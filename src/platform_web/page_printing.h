// One print of a page, from its order to its end. A PDF file is written by the engine at once, with
// its texts as texts; for a printer the engine makes the PDF in parts of some thousand rows, and
// each sheet of them is painted, one a turn of the event loop.
//
// A file that was not finished is not there, and one that stood there before is as it was.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QPainter>
#include <QPdfDocument>
#include <QPointer>
#include <QPrinter>
#include <functional>
#include <memory>

#include "platform_web/shown_page.h"

namespace tavernook {

class PagePrinting : public QObject {
  public:
    struct Told {
        std::function<void(int)> progress;        // percents
        std::function<void(bool)> done;           // once, by the event loop
        std::function<void(PagePrinting&)> over;  // last of all: the page is free for another
    };

    PagePrinting(std::shared_ptr<ShownPage> page, std::shared_ptr<QPrinter> printer, Told told);
    ~PagePrinting() override;

    // Nobody hears of it any more. Comes back when the engine has left the page: taking that away
    // while it is printed ends the program. Windows are painted meanwhile.
    void retire();

    void start();

    // `done` hears false. While the engine is still at work on a part the page is not free.
    void cancel();

  private:
    void print_file();
    void count_rows();
    void print_part();
    void paint_part(const QByteArray& pdf);
    void paint_sheet();
    bool paint_on_paper(int sheet);
    void finish(bool succeeded);
    void leave();
    void lose_page();

    // What the engine gives back later, unless this has gone by then.
    void make_pdf(const QPageRanges& sheets, void (PagePrinting::*next)(const QByteArray&));
    void write_file(const QByteArray& pdf);

    std::shared_ptr<ShownPage> page_;
    std::shared_ptr<QPrinter> printer_;
    Told told_;
    QPageLayout layout_;
    std::unique_ptr<QPdfDocument> part_;
    QPainter painter_;
    int rows_ = 0;
    int parts_ = 1;
    int part_number_ = 0;
    int sheet_of_part_ = 0;
    int sheets_before_ = 0;
    bool has_ended_ = false;
    bool engine_works_ = false;
    bool is_lost_ = false;  // the view cancels then
};

}  // namespace tavernook
