#include "rich_text/rtf_characters.h"

#include <QStringDecoder>
#include <algorithm>
#include <iterator>
#include <map>
#include <string>

#include "basics/code_page.h"

namespace tavernook::rtf {

namespace {

const char* decoder_name(int code_page) {
    static const std::map<int, const char*> names = {
        {437, "IBM437"},        {850, "IBM850"},        {852, "IBM852"},
        {866, "IBM866"},        {874, "windows-874"},   {932, "Shift_JIS"},
        {936, "GBK"},           {949, "windows-949"},   {950, "Big5"},
        {1250, "windows-1250"}, {1251, "windows-1251"}, {1253, "windows-1253"},
        {1254, "windows-1254"}, {1255, "windows-1255"}, {1256, "windows-1256"},
        {1257, "windows-1257"}, {1258, "windows-1258"}, {10000, "macintosh"},
        {65001, "UTF-8"}};
    const auto found = names.find(code_page);
    return found == names.end() ? nullptr : found->second;
}

QString decoded_1252(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes) {
        text += QChar(static_cast<char16_t>(unicode_from_byte(static_cast<unsigned char>(byte))));
    }
    return text;
}

bool is_plain(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte >= 0; });
}

QChar symbol(unsigned char byte, bool greek) {
    static constexpr char16_t capitals[] = u"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ";
    static constexpr char16_t smalls[] = u"αβχδεφγηιϕκλμνοπθρστυϖωξψζ";
    if (greek && byte >= 'A' && byte <= 'Z') return capitals[byte - 'A'];
    if (greek && byte >= 'a' && byte <= 'z') return smalls[byte - 'a'];
    if (byte == 0xB7) return u'\u2022';
    if (!greek && byte == 0xA7) return u'\u25AA';
    if (!greek && byte == 0xFC) return u'\u2713';
    if (greek && byte == 0xB0) return u'\u00B0';
    return QChar(static_cast<char16_t>(byte));
}

bool is_structure_mark(QChar character) {
    const char16_t code = character.unicode();
    return (code < 0x20 && code != '\t') || code == 0x7F || code == 0xFDD0 || code == 0xFDD1 ||
           code == 0xFFFC;
}

}  // namespace

int code_page_of_character_set(int character_set) {
    static const std::map<int, int> code_pages = {
        {0, 1252},   {77, 10000}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
        {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
        {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    const auto found = code_pages.find(character_set);
    return found == code_pages.end() ? 0 : found->second;
}

QString decoded(std::string_view bytes, int code_page) {
    if (is_plain(bytes)) return QString::fromLatin1(bytes.data(), std::ssize(bytes));
    const char* name = decoder_name(code_page);
    if (name == nullptr) return decoded_1252(bytes);
    QStringDecoder decoder(name);
    if (!decoder.isValid()) return decoded_1252(bytes);
    return decoder.decode(QByteArrayView(bytes.data(), std::ssize(bytes)));
}

QString decoded_symbols(std::string_view bytes, const QString& font) {
    const bool greek = font.startsWith(QStringLiteral("Symbol"), Qt::CaseInsensitive);
    QString text;
    for (const char byte : bytes) text += symbol(static_cast<unsigned char>(byte), greek);
    return text;
}

QString without_structure_marks(QString text) {
    text.replace(QChar(0x2029), QChar(0x2028));
    text.removeIf(is_structure_mark);
    return text;
}

}  // namespace tavernook::rtf
