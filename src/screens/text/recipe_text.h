// The sheet that a recipe is written on: a paper of its own in every palette, pictures that fit its
// width, a zoom that leaves the document alone. What is pasted and copied see text_arrival.h and
// text_exchange.h.
#pragma once

#include <QImage>
#include <QTextEdit>

#include "rich_text/rtf_model.h"
#include "screens/text/picture_commands.h"

class QMenu;

namespace tavernook {

class FittingPictures;

class RecipeText : public QTextEdit {
    Q_OBJECT

  public:
    explicit RecipeText(QWidget* parent = nullptr);

    // Both forget the undo history and put the caret to the start; the document counts as
    // unchanged.
    void replace_with(const rtf::Content& content);
    void replace_with(const QString& plain_words);
    void empty();

    // At the caret, in place of the selection, in a paragraph of its own and at most two thirds as
    // wide as the text; one with more dots than a text keeps is scaled down. False, and nothing is
    // changed, where the picture is none or has, alone or with those of the document, more dots
    // than a recipe keeps.
    [[nodiscard]] bool insert_picture(const QImage& picture);

    // The picture that is selected or stands beside the caret. Nothing without one.
    void resize_picture(PictureStep step);

    // Paper and ink in the colours of what is around, the lighter one as paper. It has to be told
    // of each change: a palette of its own hears nothing of them.
    void take_paper(const QPalette& around);

    // In hundredths of the true size, from 50 to 400.
    void set_zoom(int percent);
    int zoom() const { return zoom_; }

  Q_SIGNALS:
    void pointer_moved();
    // A pasted or dropped picture was none or too large.
    void picture_refused();
    // What was pasted or dropped came otherwise than it was, or not at all.
    void told(const QString& words);

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    enum class Key { none, zoom_in, zoom_out, true_size, redo, larger, smaller, original };

    Key key_of(const QKeyEvent& event) const;
    void run(Key key);
    void keep_font();
    bool has_room_for(long long dots) const;
    double room_of_new_picture() const;
    QString add_picture(const QImage& picture);
    void add_picture_commands(QMenu& menu);
    void insert_data(const QMimeData& data);
    void insert_words(const QString& words);
    void insert_content(const rtf::Content& content);

    FittingPictures* pictures_;
    QImage zoomed_device_;
    int zoom_ = 100;
    int pictures_added_ = 0;
};

}  // namespace tavernook
