#include "screens/text/recipe_pane.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "barcodes/code39.h"
#include "platform/platform.h"
#include "rich_text/rtf_bounds.h"
#include "rich_text/rtf_reader.h"
#include "rich_text/rtf_writer.h"
#include "screens/parts/guard.h"
#include "screens/parts/screen.h"
#include "screens/text/picture_files.h"
#include "screens/text/recipe_text.h"
#include "screens/text/recipe_toolbar.h"

namespace tavernook {

namespace {

constexpr const char* picture_filter =
    "Bitmap Files (*.bmp)|*.bmp|"
    "Photographs (*.jpg;*.jpeg;*.png;*.gif)|*.jpg;*.jpeg;*.png;*.gif";

}  // namespace

RecipePane::RecipePane(QWidget* parent)
    : QWidget(parent), text_(new RecipeText(this)), toolbar_(new RecipeToolbar(*text_, *this)) {
    text_->setObjectName(QStringLiteral("recipe_text"));
    text_->setAccessibleName(tr("Recipe text"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(toolbar_);
    column->addWidget(text_, 1);
    const std::vector<QWidget*> parts = parts_in_order();
    for (std::size_t i = 1; i < parts.size(); ++i) setTabOrder(parts[i - 1], parts[i]);
    setFocusProxy(text_);
    connect(text_, &QTextEdit::textChanged, this, [this] {
        if (!loading_) Q_EMIT changed();
    });
    connect(text_, &RecipeText::pointer_moved, toolbar_, &RecipeToolbar::follow_caret);
    connect(text_, &RecipeText::picture_refused, this, &RecipePane::tell_refused_picture,
            Qt::QueuedConnection);
    connect(text_, &RecipeText::told, this, [](const QString& words) { say(words); });
    connect(toolbar_, &RecipeToolbar::picture_wanted, this, &RecipePane::InsertImage);
    connect(toolbar_, &RecipeToolbar::barcode_wanted, this, &RecipePane::barcode_wanted);
    connect(toolbar_, &RecipeToolbar::information_wanted, this, &RecipePane::information_wanted);
    text_->take_paper(palette());
    set_editable(false);
}

void RecipePane::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) text_->take_paper(palette());
}

bool RecipePane::load(std::string_view rich_text) {
    const rtf::Content content = rtf::parse(rich_text);
    const bool is_light = rtf::is_light(rtf::extent_of(content));
    const QScopedValueRollback<bool> quiet(loading_, true);
    if (is_light) {
        text_->replace_with(content);
    } else {
        text_->replace_with(rtf::with_short_paragraphs(rtf::plain_text(content)));
    }
    settle_text();
    toolbar_->follow_caret();
    return is_light;
}

bool RecipePane::is_light() const {
    return rtf::is_light(rtf::extent_of(*text_->document()));
}

std::string RecipePane::rich_text() const {
    rtf::require_readable(rtf::extent_of(*text_->document()));
    return rtf::written(*text_->document());
}

void RecipePane::clear() {
    const QScopedValueRollback<bool> quiet(loading_, true);
    text_->empty();
    settle_text();
    toolbar_->follow_caret();
}

bool RecipePane::is_changed() const {
    return text_->document()->isModified();
}

void RecipePane::set_unchanged() {
    text_->document()->setModified(false);
}

void RecipePane::set_editable(bool editable) {
    editable_ = editable;
    const auto reading = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
    text_->setTextInteractionFlags(editable ? Qt::TextEditorInteraction : reading);
    toolbar_->set_usable(editable);
    text_->setPlaceholderText(editable ? tr("Write down here how the recipe is made.")
                                       : tr("Choose a recipe to read it here."));
    settle_text();
}

void RecipePane::settle_text() {
    text_->setEnabled(editable_ || !text_->document()->isEmpty());
}

void RecipePane::add_text(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    text_->paste();
}

void RecipePane::add_lines(const QStringList& lines) {
    text_->moveCursor(QTextCursor::End);
    QTextCursor cursor = text_->textCursor();
    cursor.beginEditBlock();
    for (const QString& line : lines) {
        cursor.insertText(line);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
    text_->ensureCursorVisible();
}

bool RecipePane::insert_picture(const QImage& picture) {
    return text_->insert_picture(picture);
}

void RecipePane::insert_picture_file(const std::string& path) {
    const rtf::RasterPicture file = picture_in_file(path);
    if (file.is_too_large) {
        boxes().message("This picture is too large for a recipe. Please make it smaller first.");
    } else if (file.image.isNull()) {
        boxes().message("This file holds no picture that can be shown.");
    } else if (!insert_picture(file.image)) {
        boxes().message("The recipe has no room for a further picture of this size.");
    }
}

void RecipePane::tell_refused_picture() {
    guarded([] {
        boxes().message(
            "This picture is too large for a recipe, there is no room for it, or it cannot be "
            "shown.");
    });
}

void RecipePane::InsertImage() {
    guarded([&] {
        insert_picture_file(file_dialogs().open_file({"Insert Picture", picture_filter, ""}));
    });
    setFocus();
}

void RecipePane::insert_barcode_of(i16 recipe) {
    const std::string path = save_barcode_picture(recipe, true);
    if (path.empty()) return;
    guarded([&] { insert_picture_file(path); });
}

QToolBar& RecipePane::toolbar() {
    return toolbar_->bar();
}

QTextEdit& RecipePane::text() {
    return *text_;
}

std::vector<QWidget*> RecipePane::parts_in_order() {
    std::vector<QWidget*> parts = toolbar_->tab_stops();
    parts.push_back(text_);
    return parts;
}

}  // namespace tavernook
