// A printer without a queue: what is painted on its sheets is kept.
#pragma once

#include <QImage>
#include <QPageLayout>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <map>
#include <vector>

namespace tavernook {

class PaperPaint : public QPaintEngine {
  public:
    PaperPaint() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return is_begun = true; }
    bool end() override {
        is_begun = false;
        ++ended;
        return true;
    }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap& sheet, const QRectF&) override {
        sheets.push_back(sheet.toImage());
    }
    void drawImage(const QRectF&, const QImage& sheet, const QRectF&,
                   Qt::ImageConversionFlags) override {
        sheets.push_back(sheet);
    }
    Type type() const override { return User; }

    std::vector<QImage> sheets;
    bool is_begun = false;
    int ended = 0;
};

class PaperEngine : public QPrintEngine {
  public:
    explicit PaperEngine(const PaperPaint& paint) : paint_(paint) {}

    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override {
        values[key] = value;
    }
    QVariant property(PrintEnginePropertyKey key) const override {
        const QPageLayout layout = layout_now();
        if (key == PPK_QPageLayout) return QVariant::fromValue(layout);
        if (key == PPK_PaperRect) return layout.fullRectPixels(dots());
        if (key == PPK_PageRect) return layout.paintRectPixels(dots());
        if (key == PPK_Resolution) return dots();
        const auto value = values.find(key);
        return value == values.end() ? QVariant() : value->second;
    }
    bool newPage() override { return has_paper; }
    bool abort() override {
        is_aborted = true;
        return true;
    }
    int metric(QPaintDevice::PaintDeviceMetric wanted) const override {
        const QSize size = layout_now().fullRectPixels(dots()).size();
        if (wanted == QPaintDevice::PdmWidth) return size.width();
        if (wanted == QPaintDevice::PdmHeight) return size.height();
        return wanted == QPaintDevice::PdmDevicePixelRatio ? 1 : dots();
    }
    QPrinter::PrinterState printerState() const override {
        if (is_aborted) return QPrinter::Aborted;
        return paint_.is_begun ? QPrinter::Active : QPrinter::Idle;
    }

    bool is_aborted = false;
    bool has_paper = true;

  private:
    int dots() const {
        const auto value = values.find(PPK_Resolution);
        return value == values.end() ? 72 : value->second.toInt();
    }
    QPageLayout layout_now() const {
        const auto set = values.find(PPK_QPageLayout);
        if (set != values.end()) return set->second.value<QPageLayout>();
        return {QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(28, 28, 28, 28)};
    }

    const PaperPaint& paint_;
    std::map<PrintEnginePropertyKey, QVariant> values;
};

class PaperPrinter : public QPrinter {
  public:
    PaperPrinter() { setEngines(&engine, &paint); }

    PaperPaint paint;
    PaperEngine engine{paint};
};

}  // namespace tavernook
