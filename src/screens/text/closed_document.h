// A document that reaches for no file and no address, whatever its text names.
#pragma once

#include <QTextDocument>
#include <QUrl>
#include <QVariant>

namespace tavernook {

class ClosedDocument : public QTextDocument {
  public:
    using QTextDocument::QTextDocument;

  protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

}  // namespace tavernook
