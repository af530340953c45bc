#include "rich_text/flat_text.h"

#include <QFile>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace tavernook::rtf {

namespace {

struct Style {
    FlatLook look;
    QString side;
    QString left;
};

class Reader {
  public:
    explicit Reader(QIODevice& file) : xml_(&file) {}

    FlatText run() {
        while (!xml_.atEnd()) {
            switch (xml_.readNext()) {
                case QXmlStreamReader::StartElement:
                    start();
                    break;
                case QXmlStreamReader::EndElement:
                    end();
                    break;
                case QXmlStreamReader::Characters:
                    if (in_body_ && in_paragraph_ > 0) add(xml_.text().toString());
                    break;
                default:
                    break;
            }
        }
        EXPECT_FALSE(xml_.hasError()) << xml_.errorString().toStdString();
        return std::move(text_);
    }

  private:
    QString attribute(const char* name) const {
        return xml_.attributes().value(QLatin1String(name)).toString();
    }

    void start() {
        const QString name = xml_.qualifiedName().toString();
        if (name == u"office:text") in_body_ = true;
        if (!in_body_) return start_style(name);
        if (name == u"text:list") {
            lists_.push_back(attribute("text:style-name"));
            if (lists_.back().isEmpty() && lists_.size() > 1) lists_.back() = lists_.front();
        } else if (name == u"text:p" || name == u"text:h") {
            if (in_paragraph_++ == 0) start_paragraph();
        } else if (name == u"text:span") {
            looks_.push_back(styles_[attribute("text:style-name")].look);
        } else if (name == u"text:s") {
            const QString count = attribute("text:c");
            add(QString(count.isEmpty() ? 1 : count.toInt(), u' '));
        } else if (name == u"text:tab") {
            add(QStringLiteral("\t"));
        } else if (name == u"text:line-break") {
            add(QString(QChar(QChar::LineSeparator)));
        } else if (name == u"draw:frame") {
            text_.pictures.push_back({attribute("svg:width"), attribute("svg:height"), {}});
            add(QString(QChar(QChar::ObjectReplacementCharacter)));
            in_frame_ = true;
        } else if (name == u"office:binary-data") {
            const QByteArray bytes = QByteArray::fromBase64(xml_.readElementText().toLatin1());
            if (!text_.pictures.empty() && text_.pictures.back().bytes.isEmpty()) {
                text_.pictures.back().bytes = bytes;
            }
        }
    }

    void start_style(const QString& name) {
        if (name == u"style:style") {
            style_ = attribute("style:name");
        } else if (name == u"text:list-style") {
            list_style_ = attribute("style:name");
        } else if (name == u"style:text-properties") {
            read_look(styles_[style_].look);
        } else if (name == u"style:paragraph-properties") {
            styles_[style_].side = attribute("fo:text-align");
            styles_[style_].left = attribute("fo:margin-left");
        } else if (name == u"text:list-level-style-bullet") {
            text_.lists[{list_style_, attribute("text:level").toInt()}] = QStringLiteral("bullet");
        } else if (name == u"text:list-level-style-number") {
            text_.lists[{list_style_, attribute("text:level").toInt()}] =
                "number " + attribute("style:num-format");
        }
    }

    void read_look(FlatLook& look) const {
        const auto set = [this](const char* name) {
            const QString value = attribute(name);
            return !value.isEmpty() && value != u"none";
        };
        look.bold = attribute("fo:font-weight") == u"bold";
        look.italic = attribute("fo:font-style") == u"italic";
        look.underline = set("style:text-underline-style");
        look.strike = set("style:text-line-through-style");
        look.colour = attribute("fo:color");
        look.background = attribute("fo:background-color");
        look.size = attribute("fo:font-size");
        look.position = attribute("style:text-position");
    }

    void start_paragraph() {
        const Style& style = styles_[attribute("text:style-name")];
        FlatParagraph paragraph;
        paragraph.side = style.side;
        paragraph.left = style.left;
        paragraph.list_level = static_cast<int>(lists_.size());
        if (!lists_.empty()) paragraph.list_style = lists_.back();
        text_.paragraphs.push_back(std::move(paragraph));
        looks_ = {style.look};
    }

    void end() {
        const QString name = xml_.qualifiedName().toString();
        if (name == u"office:text") in_body_ = false;
        if (!in_body_) return;
        if (name == u"text:list") lists_.pop_back();
        if (name == u"text:p" || name == u"text:h") --in_paragraph_;
        if (name == u"text:span") looks_.pop_back();
        if (name == u"draw:frame") in_frame_ = false;
    }

    void add(const QString& text) {
        if (in_paragraph_ > 0 && !in_frame_)
            text_.paragraphs.back().runs.push_back({text, looks_.back()});
    }

    QXmlStreamReader xml_;
    FlatText text_;
    std::map<QString, Style> styles_;
    QString style_;
    QString list_style_;
    std::vector<QString> lists_;
    std::vector<FlatLook> looks_;
    int in_paragraph_ = 0;
    bool in_body_ = false;
    bool in_frame_ = false;
};

}  // namespace

QString FlatParagraph::text() const {
    QString whole;
    for (const FlatRun& run : runs) whole += run.text;
    return whole;
}

FlatLook FlatText::look(const char* text) const {
    for (const FlatParagraph& candidate : paragraphs) {
        for (const FlatRun& run : candidate.runs) {
            if (run.text.startsWith(QString::fromUtf8(text))) return run.look;
        }
    }
    ADD_FAILURE() << "no run begins with " << text;
    return {};
}

FlatParagraph FlatText::paragraph(const char* text) const {
    for (const FlatParagraph& candidate : paragraphs) {
        if (candidate.text().startsWith(QString::fromUtf8(text))) return candidate;
    }
    ADD_FAILURE() << "no paragraph begins with " << text;
    return {};
}

QString FlatText::list_kind(const char* text) const {
    const FlatParagraph found = paragraph(text);
    const auto kind = lists.find({found.list_style, found.list_level});
    return kind == lists.end() ? QStringLiteral("none") : kind->second;
}

FlatText read_flat_text(const std::string& path) {
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return Reader(file).run();
}

}  // namespace tavernook::rtf
