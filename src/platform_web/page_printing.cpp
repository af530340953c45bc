#include "platform_web/page_printing.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QSaveFile>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "platform_web/page_scripts.h"

namespace tavernook {

namespace {

constexpr int rows_of_a_part = 2000;
constexpr int dots_per_inch = 300;

// The sheet as it lies in the printer: one that is laid out across is turned.
QImage picture_of(const QPdfDocument& document, int sheet, const QSize& paper) {
    const QSizeF size = document.pagePointSize(sheet);
    const bool is_turned = (size.width() > size.height()) != (paper.width() > paper.height());
    const QSize room = is_turned ? paper.transposed() : paper;
    QImage picture(room, QImage::Format_RGB32);
    picture.fill(Qt::white);
    const QSize drawn = size.scaled(room, Qt::KeepAspectRatio).toSize();
    QPainter(&picture).drawImage(0, 0, const_cast<QPdfDocument&>(document).render(sheet, drawn));
    return is_turned ? picture.transformed(QTransform().rotate(90)) : picture;
}

// In the dots of a page, of which an inch has 96.
double width_of_paper(const QPageLayout& layout) {
    return layout.paintRect(QPageLayout::Inch).width() * 96;
}

bool is_wanted(const QPrinter& printer, int sheet) {
    const QPageRanges ranges = printer.pageRanges();
    return ranges.isEmpty() || ranges.contains(sheet);
}

}  // namespace

PagePrinting::PagePrinting(std::shared_ptr<ShownPage> page, std::shared_ptr<QPrinter> printer,
                           Told told)
    : page_(std::move(page)),
      printer_(std::move(printer)),
      told_(std::move(told)),
      layout_(printer_->pageLayout()) {
    connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this, [this] { lose_page(); });
}

PagePrinting::~PagePrinting() {
    if (painter_.isActive()) printer_->abort();
}

void PagePrinting::retire() {
    told_ = {[](int) {}, [](bool) {}, [](PagePrinting&) {}};
    cancel();
    if (!engine_works_) return;
    while (engine_works_) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
}

// The engine ends the program when a page goes of which it still wanted a print from a process that
// has died. So such a page stays to the end, which costs some memory and happens to hardly anyone.
void PagePrinting::lose_page() {
    if (engine_works_) new std::shared_ptr<ShownPage>(page_);
    engine_works_ = false;
    is_lost_ = true;
}

void PagePrinting::start() {
    if (has_ended_) return;
    // Not waited for: the engine ends the program when it is to print a page that has died
    // meanwhile.
    page_->command(page_scripts::fit_to_paper, {width_of_paper(layout_), rows_of_a_part});
    const bool is_file =
        printer_->outputFormat() == QPrinter::PdfFormat && !printer_->outputFileName().isEmpty();
    if (is_file) {
        print_file();
    } else {
        count_rows();
    }
}

void PagePrinting::make_pdf(const QPageRanges& sheets,
                            void (PagePrinting::*next)(const QByteArray&)) {
    if (is_lost_) return;
    engine_works_ = true;
    const QPointer<PagePrinting> self(this);
    page_->printToPdf(
        [self, next](const QByteArray& pdf) {
            if (self.isNull()) return;
            self->engine_works_ = false;
            if (self->has_ended_) {
                self->leave();
            } else if (pdf.isEmpty()) {
                self->finish(false);
            } else {
                (self->*next)(pdf);
            }
        },
        layout_, sheets);
}

void PagePrinting::print_file() {
    make_pdf(printer_->pageRanges(), &PagePrinting::write_file);
}

void PagePrinting::write_file(const QByteArray& pdf) {
    QSaveFile file(printer_->outputFileName());
    const bool is_written = file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size();
    finish(is_written && file.commit());
}

void PagePrinting::count_rows() {
    const QPointer<PagePrinting> self(this);
    page_->command(page_scripts::longest_table, {}, [self](const QVariant& rows) {
        if (self.isNull() || self->has_ended_) return;
        self->rows_ = rows.toInt();
        self->parts_ = std::max(1, (self->rows_ + rows_of_a_part - 1) / rows_of_a_part);
        self->print_part();
    });
}

void PagePrinting::print_part() {
    if (parts_ > 1) {
        const int first = part_number_ * rows_of_a_part + 1;
        const int last = std::min(first + rows_of_a_part - 1, rows_);
        page_->command(page_scripts::part_on_paper, {first, last, rows_});
    }
    make_pdf({}, &PagePrinting::paint_part);
}

void PagePrinting::paint_part(const QByteArray& pdf) {
    part_ = std::make_unique<QPdfDocument>();
    auto* bytes = new QBuffer(part_.get());
    bytes->setData(pdf);
    bytes->open(QIODevice::ReadOnly);
    part_->load(bytes);
    sheet_of_part_ = 0;
    if (part_->pageCount() == 0) return finish(false);
    paint_sheet();
}

void PagePrinting::paint_sheet() {
    if (has_ended_) return;
    if (sheet_of_part_ == part_->pageCount()) {
        sheets_before_ += sheet_of_part_;
        if (++part_number_ == parts_) return finish(true);
        return print_part();
    }
    if (!paint_on_paper(sheet_of_part_)) return finish(false);
    ++sheet_of_part_;
    const int of_part = 100 * sheet_of_part_ / part_->pageCount();
    told_.progress((100 * part_number_ + of_part) / parts_);
    QTimer::singleShot(0, this, &PagePrinting::paint_sheet);
}

bool PagePrinting::paint_on_paper(int sheet) {
    if (!is_wanted(*printer_, sheets_before_ + sheet + 1)) return true;
    if (painter_.isActive()) {
        if (!printer_->newPage()) return false;
    } else {
        printer_->setResolution(dots_per_inch);
        printer_->setFullPage(true);
        if (!painter_.begin(printer_.get())) return false;
    }
    const QSize paper = printer_->paperRect(QPrinter::DevicePixel).toRect().size();
    painter_.drawImage(0, 0, picture_of(*part_, sheet, paper));
    const QPrinter::PrinterState state = printer_->printerState();
    return state != QPrinter::Aborted && state != QPrinter::Error;
}

void PagePrinting::cancel() {
    finish(false);
}

// What has been painted of a print that failed is not to be printed.
void PagePrinting::finish(bool succeeded) {
    if (std::exchange(has_ended_, true)) return;
    if (painter_.isActive()) {
        if (!succeeded) printer_->abort();
        if (!painter_.end()) succeeded = false;
    }
    if (!is_lost_) {
        if (parts_ > 1) page_->command(page_scripts::part_on_paper, {0, 0, rows_});
        page_->command(page_scripts::as_before_paper, {});
    }
    told_.done(succeeded);
    if (!engine_works_) leave();
}

void PagePrinting::leave() {
    told_.over(*this);
}

}  // namespace tavernook
