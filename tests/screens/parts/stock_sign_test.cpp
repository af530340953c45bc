// Stock that wants attention is told by an icon, a colour and a word.
#include "screens/parts/stock_sign.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>
#include <map>
#include <set>

#include "core/program_state.h"
#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "gui_support/warning_guard.h"
#include "inventory/lots.h"
#include "screens/parts/house_colours.h"
#include "screens/parts/list_parts.h"
#include "screens/parts/rows_model.h"
#include "screens/parts/sign_line.h"
#include "screens/parts/sign_words.h"

namespace tavernook {
namespace {

constexpr i16 milk = 3;

// It is day 45427.
class StockSigns : public testing::Test {
  protected:
    StockSigns() {
        expiration_warning_days = 3;
        items[milk].in_use = 1;
        items[milk].name = "Milk";
        items[milk].storage_time = 30;
        items[milk].last_restock_date = 45420;
        init_lot_record(milk);
        lots[milk].lot_quantity[0] = 2;
        lots[milk].expiration_date[0] = 45450;
        items[milk].quantity = 2;
    }
    ~StockSigns() override { QGuiApplication::setPalette(QPalette()); }

    static void be_past_date() { lots[milk].expiration_date[0] = 45420; }
    static void be_soon() { items[milk].last_restock_date = 45398; }
    static void be_low() {
        items[milk].stock_quantity = 6;
        items[milk].restock_quantity = 2;
    }
    static void use_dark_palette() {
        QPalette palette(QColor("#2d2d30"), QColor("#252528"));
        palette.setColor(QPalette::Base, QColor("#1e1e20"));
        palette.setColor(QPalette::WindowText, QColor("#e6e6e6"));
        palette.setColor(QPalette::Text, QColor("#e6e6e6"));
        QGuiApplication::setPalette(palette);
    }

    static QColor ink(StockSign sign) {
        return sign_data(sign, Qt::ForegroundRole).value<QColor>();
    }

    TestPlatform platform;
};

TEST_F(StockSigns, TellWhatIsMostPressing) {
    EXPECT_EQ(stock_sign_of(milk), StockSign::none);
    EXPECT_EQ(stock_words(milk), "");
    be_low();
    EXPECT_EQ(stock_sign_of(milk), StockSign::low);
    EXPECT_EQ(stock_words(milk), "Low");
    be_soon();
    EXPECT_EQ(stock_sign_of(milk), StockSign::soon);
    EXPECT_EQ(stock_words(milk), "Expires soon, low");
    be_past_date();
    EXPECT_EQ(stock_sign_of(milk), StockSign::past_date);
    EXPECT_EQ(stock_words(milk), "Expired, low");
    EXPECT_EQ(stock_sign_of(0), StockSign::none);
    EXPECT_EQ(stock_words(0), "");
    EXPECT_EQ(stock_sign_of(-9), StockSign::none);
    EXPECT_EQ(stock_words(32767), "");
}

TEST_F(StockSigns, HaveAnIconAndAColourOfTheirOwn) {
    std::set<QByteArray> seen;
    for (const StockSign sign : {StockSign::past_date, StockSign::soon, StockSign::low}) {
        const QIcon drawn = sign_data(sign, Qt::DecorationRole).value<QIcon>();
        ASSERT_FALSE(drawn.isNull());
        const QImage image = drawn.pixmap(QSize(32, 32), 1.0, QIcon::Disabled).toImage();
        seen.insert(
            QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
        EXPECT_FALSE(sign_data(sign, Qt::DisplayRole).isValid());
    }
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_NE(ink(StockSign::past_date), ink(StockSign::low));
    EXPECT_FALSE(sign_data(StockSign::none, Qt::DecorationRole).isValid());
    EXPECT_FALSE(sign_data(StockSign::none, Qt::ForegroundRole).isValid());
    EXPECT_TRUE(sign_icon(StockSign::none).isNull());
}

TEST_F(StockSigns, AreReadableOnLightAndDarkLists) {
    for (const bool is_dark : {false, true}) {
        if (is_dark) use_dark_palette();
        const QColor base = QGuiApplication::palette().color(QPalette::Base);
        EXPECT_GE(contrast(ink(StockSign::past_date), base), 4.5);
        EXPECT_GE(contrast(ink(StockSign::low), base), 4.5);
    }
}

// How many pixels of the view have that very colour.
int pixels_of(QWidget& widget, const QColor& colour) {
    const QImage image = widget.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour;
    }
    return count;
}

TEST_F(StockSigns, ASelectedRowHasTheColoursOfWhatIsSelected) {
    RowsModel model({{.title = "Note",
                      .text = [](RowId) { return QString("Expired"); },
                      .sign = [](RowId) { return StockSign::past_date; }}},
                    nullptr);
    model.set_rows({1});
    QTreeView list;
    dress_list(list);
    list.setModel(&model);
    list.resize(200, 100);
    const QColor past = ink(StockSign::past_date);
    EXPECT_GT(pixels_of(list, past), 20);
    list.setCurrentIndex(model.index(0, 0));
    EXPECT_EQ(pixels_of(list, past), 0);
    EXPECT_GT(pixels_of(list, list.palette().color(QPalette::HighlightedText)), 20);
}

// A list of one column with a sign and its word.
struct SignList {
    SignList(Qt::Alignment alignment, int width, const QString& word)
        : model({{.title = "Amount",
                  .text = [](RowId) { return QString("12"); },
                  .alignment = alignment,
                  .description = [word](RowId) { return word; },
                  .sign = [](RowId) { return StockSign::past_date; }}},
                nullptr) {
        model.set_rows({1});
        dress_list(view);
        view.setModel(&model);
        show_sign_words(view);
        view.resize(width, 100);
        view.header()->resizeSection(0, width - 20);
    }

    RowsModel model;
    QTreeView view;
};

TEST_F(StockSigns, TheWordStandsInTheCellWhereThereIsRoom) {
    for (const Qt::Alignment side : {on_the_left, on_the_right}) {
        const auto picture = [&](int width, const QString& word) {
            SignList list(side, width, word);
            return list.view.grab().toImage();
        };
        EXPECT_NE(picture(300, "Expired"), picture(300, ""));
        EXPECT_NE(picture(300, "Expired"), picture(300, "Low"));
        EXPECT_EQ(picture(80, "Expired"), picture(80, ""));
    }
}

TEST_F(StockSigns, TheWordIsNoPartOfTheText) {
    SignList list(on_the_right, 300, "Expired");
    EXPECT_EQ(list.model.index(0, 0).data().toString(), "12");
    EXPECT_EQ(list.model.index(0, 0).data(RowsModel::sign_words_role).toString(), "Expired");
    list.view.setCurrentIndex(list.model.index(0, 0));
    EXPECT_EQ(pixels_of(list.view, ink(StockSign::past_date)), 0);
}

TEST_F(StockSigns, AFormShowsThemInALine) {
    QWidget form;
    SignLine line(&form);
    auto& words = *line.findChild<QLabel*>("attention_words");
    line.show_item(milk);
    EXPECT_TRUE(words.isHidden());
    be_low();
    line.show_item(milk);
    EXPECT_FALSE(words.isHidden());
    EXPECT_EQ(words.text(), "Low");
    EXPECT_EQ(words.accessibleName(), "Attention");
    EXPECT_EQ(words.palette().color(QPalette::WindowText), ink(StockSign::low));
    EXPECT_FALSE(line.findChildren<QLabel*>().first()->pixmap().isNull());
    line.show_item(0);
    EXPECT_TRUE(words.isHidden());
    EXPECT_EQ(words.text(), "");
}

TEST_F(StockSigns, TheLineFollowsThePalette) {
    be_past_date();
    QWidget form;
    SignLine line(&form);
    line.show_item(milk);
    form.show();
    const QColor on_light = ink(StockSign::past_date);
    use_dark_palette();
    QCoreApplication::processEvents();
    const auto& words = *line.findChild<QLabel*>("attention_words");
    EXPECT_NE(ink(StockSign::past_date), on_light);
    EXPECT_EQ(words.palette().color(QPalette::WindowText), ink(StockSign::past_date));
}

}  // namespace
}  // namespace tavernook
