// Recipe documents as rich text beside the same documents as HTML, read and written by the library
// that holds them; and the figures of a thousand recipes beside a plain sum over the same bytes.
// Goal: a ratio of at most 1 for the documents.
#include <QGuiApplication>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "core/project_data.h"
#include "fakes/test_platform.h"
#include "measured_pairs.h"
#include "recipes/roll_up.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"
#include "support/generated_projects.h"

namespace tavernook {

namespace {

constexpr int pairs = 21;

// --- documents -----------------------------------------------------------------------------------

void insert_heading(QTextCursor& cursor, int number) {
    QTextBlockFormat block;
    block.setAlignment(Qt::AlignHCenter);
    QTextCharFormat format;
    format.setFontPointSize(18);
    format.setFontWeight(QFont::Bold);
    format.setForeground(QColor(number % 200, 40, 90));
    cursor.insertBlock(block, format);
    cursor.insertText(QStringLiteral("Recipe %1").arg(number), format);
}

void insert_ingredients(QTextCursor& cursor) {
    QTextListFormat form;
    form.setStyle(QTextListFormat::ListDisc);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    cursor.createList(form);
    cursor.insertText(QStringLiteral("200 g flour, sifted\n3 eggs\n1 pinch of salt"));
}

void insert_steps(QTextCursor& cursor) {
    QTextCharFormat plain;
    plain.setFontPointSize(11);
    QTextCharFormat bold = plain;
    bold.setFontWeight(QFont::Bold);
    QTextCharFormat italic = plain;
    italic.setFontItalic(true);
    cursor.insertBlock(QTextBlockFormat(), plain);
    for (int step = 0; step < 4; ++step) {
        cursor.insertText(QStringLiteral("Stir the butter until it is pale, then add "), plain);
        cursor.insertText(QStringLiteral("half of the sugar"), bold);
        cursor.insertText(QString::fromUtf8(" and the crème fraîche – "), plain);
        cursor.insertText(QStringLiteral("slowly. "), italic);
    }
}

void insert_picture(QTextDocument& document, QTextCursor& cursor) {
    QImage image(300, 100, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int x = 20; x < 280; x += 2) {
        for (int y = 0; y < 50; ++y) image.setPixelColor(x + y % 2, y, QColor(x % 256, 30, 60));
    }
    document.addResource(QTextDocument::ImageResource, QUrl("pot"), image);
    cursor.insertImage(QStringLiteral("pot"));
}

// A cookbook of one picture and so many recipes that it has about `bytes` bytes as rich text.
struct Cookbook {
    explicit Cookbook(std::size_t bytes) {
        QTextCursor cursor(&document);
        insert_picture(document, cursor);
        std::size_t each = 0;
        const std::size_t picture = rtf::written(document).size();
        for (int number = 1; number == 1 || picture + each * number < bytes; ++number) {
            insert_heading(cursor, number);
            insert_ingredients(cursor);
            insert_steps(cursor);
            if (number == 1) each = rtf::written(document).size() - picture;
        }
        rtf_bytes = rtf::written(document);
        html = document.toHtml();
    }

    QTextDocument document;
    std::string rtf_bytes;
    QString html;
};

void tell_speed(benchmark::State& state, const Cookbook& book, double seconds) {
    state.counters["MB_per_s"] = static_cast<double>(book.rtf_bytes.size()) / 1e6 / seconds;
    state.counters["rtf_kB"] = static_cast<double>(book.rtf_bytes.size()) / 1e3;
    state.counters["html_kB"] = static_cast<double>(book.html.toUtf8().size()) / 1e3;
}

// Each reading goes into a document of its own, which is gone before the next begins.
void read_document(benchmark::State& state) {
    const Cookbook book(static_cast<std::size_t>(state.range(0)));
    const auto read = [&] {
        QTextDocument document;
        rtf::read(book.rtf_bytes, document);
        benchmark::DoNotOptimize(document.blockCount());
    };
    const auto set_html = [&] {
        QTextDocument document;
        document.setHtml(book.html);
        benchmark::DoNotOptimize(document.blockCount());
    };
    tell_speed(state, book,
               measure_pairs(
                   state, [] {}, read, set_html));
}

void write_document(benchmark::State& state) {
    const Cookbook book(static_cast<std::size_t>(state.range(0)));
    const auto write = [&] { benchmark::DoNotOptimize(rtf::written(book.document)); };
    const auto to_html = [&] { benchmark::DoNotOptimize(book.document.toHtml()); };
    tell_speed(state, book,
               measure_pairs(
                   state, [] {}, write, to_html));
}

// --- figures -------------------------------------------------------------------------------------

template <typename Record>
std::uint64_t sum_of_bytes(const Record& record) {
    const char* bytes = reinterpret_cast<const char*>(&record);
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i + sizeof sum <= sizeof record; i += sizeof sum) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes + i, sizeof word);
        sum += word;
    }
    return sum;
}

// Every recipe, its items and their units, in the order in which the figures need them.
void sum_recipes() {
    std::uint64_t sum = 0;
    for (i16 slot = 1; slot <= meal_capacity; ++slot) {
        sum += sum_of_bytes(meals[slot]);
        for (const i16 item : meals[slot].ingredient_item) {
            if (item == 0) continue;
            sum += sum_of_bytes(items[item]);
            sum += sum_of_bytes(units[items[item].serving_size_units]);
        }
    }
    benchmark::DoNotOptimize(sum);
}

void roll_up_1000_recipes(benchmark::State& state) {
    const TestPlatform platform;
    fill_full_project();
    const auto roll_up_all = [] {
        for (i16 slot = 1; slot <= meal_capacity; ++slot) {
            const RollUp figures = roll_up(meals[slot], meal_serving_size[slot]);
            if (figures.ingredients.size() != ingredient_places) std::abort();
        }
    };
    measure_pairs(
        state, [] {}, roll_up_all, sum_recipes);
}

#define RECIPES_BENCHMARK(name) \
    BENCHMARK(name)->UseManualTime()->Iterations(pairs)->Unit(benchmark::kMillisecond)
RECIPES_BENCHMARK(read_document)->Arg(100'000)->Arg(1'000'000);
RECIPES_BENCHMARK(write_document)->Arg(100'000)->Arg(1'000'000);
RECIPES_BENCHMARK(roll_up_1000_recipes);

}  // namespace

}  // namespace tavernook

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
