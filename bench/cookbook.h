// A recipe document of any size, for measuring.
#pragma once

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QUrl>
#include <cstddef>
#include <string>

#include "rich_text/rtf_writer.h"

namespace tavernook {

inline void insert_heading(QTextCursor& cursor, int number) {
    QTextBlockFormat block;
    block.setAlignment(Qt::AlignHCenter);
    QTextCharFormat format;
    format.setFontPointSize(18);
    format.setFontWeight(QFont::Bold);
    format.setForeground(QColor(number % 200, 40, 90));
    cursor.insertBlock(block, format);
    cursor.insertText(QStringLiteral("Recipe %1").arg(number), format);
}

inline void insert_ingredients(QTextCursor& cursor) {
    QTextListFormat form;
    form.setStyle(QTextListFormat::ListDisc);
    cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    cursor.createList(form);
    cursor.insertText(QStringLiteral("200 g flour, sifted\n3 eggs\n1 pinch of salt"));
}

inline void insert_steps(QTextCursor& cursor) {
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

inline void insert_picture(QTextDocument& document, QTextCursor& cursor) {
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

}  // namespace tavernook
