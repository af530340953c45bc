// Documents from a random source, and documents put into words for comparing.
#pragma once

#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextList>
#include <QUrl>
#include <random>
#include <string>

namespace tavernook::rtf {

using Random = std::mt19937;

inline QTextCharFormat some_format(Random& random) {
    static const QStringList families = {"Serif", "Sans", "Crème Brûlée"};
    QTextCharFormat format;
    format.setFontFamilies({families[random() % 3]});
    format.setFontPointSize(6 + static_cast<double>(random() % 40) / 2);
    if (random() % 3 == 0) format.setFontWeight(QFont::Bold);
    if (random() % 3 == 0) format.setFontItalic(true);
    if (random() % 3 == 0) format.setFontUnderline(true);
    if (random() % 3 == 0) format.setFontStrikeOut(true);
    if (random() % 5 == 0) format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    if (random() % 5 == 1) format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (random() % 3 == 0) format.setForeground(QColor(random() % 256, random() % 256, 7));
    if (random() % 4 == 0) format.setBackground(QColor(9, random() % 256, random() % 256));
    return format;
}

// What a list leaves to its paragraphs.
inline QTextBlockFormat some_list_block_format(Random& random) {
    static const Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight,
                                          Qt::AlignJustify};
    QTextBlockFormat format;
    format.setAlignment(sides[random() % 4]);
    format.setRightMargin(static_cast<double>(random() % 3 * 8));
    format.setTopMargin(static_cast<double>(random() % 3 * 4));
    format.setBottomMargin(static_cast<double>(random() % 3 * 6));
    return format;
}

inline QTextBlockFormat some_block_format(Random& random) {
    QTextBlockFormat format = some_list_block_format(random);
    format.setLeftMargin(static_cast<double>(random() % 5 * 10));
    format.setTextIndent(static_cast<double>(random() % 3) * 5 - 5);
    return format;
}

inline QString some_text(Random& random) {
    static const QString signs = QString::fromUtf8("abc {}\\;\té€–“ÿ\u00A0\u00AD\u2028Ωα中文😀'*");
    QString text;
    const auto length = 1 + random() % 12;
    for (unsigned i = 0; i < length; ++i) {
        const QChar sign = signs[static_cast<qsizetype>(random() % signs.size())];
        if (!sign.isSurrogate()) text += sign;
    }
    return text + QString::fromUtf8(random() % 4 == 0 ? "😀" : ".");
}

inline void insert_some_picture(QTextDocument& document, QTextCursor& cursor, Random& random) {
    QImage image(1 + static_cast<int>(random() % 9), 1 + static_cast<int>(random() % 9),
                 QImage::Format_RGB32);
    image.fill(QColor(random() % 256, random() % 256, random() % 256));
    QTextImageFormat format;
    format.setName(QStringLiteral("picture%1").arg(random()));
    format.setWidth(static_cast<double>(5 + random() % 200));
    format.setHeight(static_cast<double>(5 + random() % 200));
    document.addResource(QTextDocument::ImageResource, QUrl(format.name()), image);
    cursor.insertImage(format);
}

inline void insert_some_pieces(QTextDocument& document, QTextCursor& cursor, Random& random) {
    for (auto pieces = random() % 5; pieces > 0; --pieces) {
        cursor.insertText(some_text(random), some_format(random));
        if (random() % 8 == 0) insert_some_picture(document, cursor, random);
    }
}

inline void insert_some_list(QTextDocument& document, QTextCursor& cursor, Random& random) {
    static const QTextListFormat::Style styles[] = {
        QTextListFormat::ListDisc,       QTextListFormat::ListCircle,
        QTextListFormat::ListSquare,     QTextListFormat::ListDecimal,
        QTextListFormat::ListLowerAlpha, QTextListFormat::ListUpperAlpha,
        QTextListFormat::ListLowerRoman, QTextListFormat::ListUpperRoman};
    QTextListFormat form;
    form.setStyle(styles[random() % 8]);
    form.setIndent(1 + static_cast<int>(random() % 4));
    cursor.insertBlock(some_list_block_format(random), {});
    QTextList* list = cursor.createList(form);
    insert_some_pieces(document, cursor, random);
    for (auto entries = random() % 30; entries > 0; --entries) {
        cursor.insertBlock(some_list_block_format(random), {});
        list->add(cursor.block());
        cursor.insertText(some_text(random), some_format(random));
    }
}

// Neighbouring lists of one kind would become one, so that each stands between plain paragraphs.
inline void generate(QTextDocument& document, Random& random) {
    QTextCursor cursor(&document);
    const auto paragraphs = 1 + random() % 12;
    for (unsigned i = 0; i < paragraphs; ++i) {
        if (i > 0) {
            if (random() % 4 == 0) insert_some_list(document, cursor, random);
            cursor.insertBlock(QTextBlockFormat(), {});
        }
        cursor.setBlockFormat(some_block_format(random));
        insert_some_pieces(document, cursor, random);
    }
}

inline std::string described(const QTextCharFormat& format) {
    std::string out = format.fontFamilies().toStringList().join(u',').toStdString();
    out += " " + std::to_string(format.fontPointSize());
    out += format.fontWeight() >= QFont::Bold ? " bold" : "";
    out += format.fontItalic() ? " italic" : "";
    out += format.fontUnderline() ? " underline" : "";
    out += format.fontStrikeOut() ? " strike" : "";
    out += " script" + std::to_string(format.verticalAlignment());
    out += " " + format.foreground().color().name().toStdString();
    out += " " + format.background().color().name().toStdString();
    return out + std::to_string(format.background().style());
}

inline std::string described(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    std::string out = std::to_string((format.alignment() & Qt::AlignHorizontal_Mask).toInt());
    for (const double length : {format.leftMargin(), format.textIndent(), format.rightMargin(),
                                format.topMargin(), format.bottomMargin()}) {
        out += " " + std::to_string(length);
    }
    if (const QTextList* list = block.textList()) {
        out += " list " + std::to_string(list->format().style()) + " level " +
               std::to_string(list->format().indent()) + " entry " +
               list->itemText(block).toStdString();
    }
    return out;
}

inline std::string described(const QTextDocument& document, const QTextImageFormat& format) {
    const QImage image =
        document.resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>();
    return "picture " + std::to_string(format.width()) + " x " + std::to_string(format.height()) +
           " of " + std::to_string(image.width()) + " x " + std::to_string(image.height()) + " " +
           image.pixelColor(0, 0).name().toStdString() + "\n";
}

// Every paragraph and piece with its formats, one a line.
inline std::string described(const QTextDocument& document) {
    std::string out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        out += "P " + described(block) + "\n";
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (fragment.charFormat().isImageFormat()) {
                out += described(document, fragment.charFormat().toImageFormat());
                continue;
            }
            out += fragment.text().toStdString() + " | " + described(fragment.charFormat()) + "\n";
        }
    }
    return out;
}

}  // namespace tavernook::rtf
