// What of a folder's files may reach the view: a page behind a policy, and pictures. The bytes
// decide, names do not.
#pragma once

#include <QByteArray>
#include <QString>

namespace tavernook {

// What a page may do while it is shown, and what when it is opened as a file of its own.
QString shown_policy();
QString saved_policy();

// The page with the policy of the view before all else that it holds, so that nothing in it is read
// without. A document type stays in front, as pages are laid out by it. Behind the policy comes
// what a page with codes in the label font needs to be drawn with it.
QByteArray with_policy(const QByteArray& page);

// "image/png" and so on; empty for bytes that are no picture which the view could show.
QByteArray picture_type(const QByteArray& bytes);

// The picture as an address that holds it. Kinds that the view does not know become PNG. Empty
// when the bytes are no picture.
QString data_address(const QByteArray& bytes);

// Text as the bytes of a page in windows-1252: "&#N;" for characters that have none.
std::string page_bytes(const QString& text);

}  // namespace tavernook
