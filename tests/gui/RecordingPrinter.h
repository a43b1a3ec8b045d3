#pragma once
#include <QPageLayout>
#include <QPaintEngine>
#include <QPointF>
#include <QPrintEngine>
#include <QPrinter>
#include <QString>
#include <QTransform>

#include <vector>

/// A printer of A4 paper at 96 points to the inch that writes down what each page gets.
class RecordingPrinter : public QPrinter
{
public:
    struct Text
    {
        QString mText;
        QPointF mPlace; ///< Of the baseline's beginning, on the paper.
    };
    struct Page
    {
        std::vector<Text> mTexts;
        int mPictures = 0;
    };

    RecordingPrinter() { setEngines(&mPrintEngine, &mPaintEngine); }

    const std::vector<Page>& pages() const { return mPaintEngine.mPages; }

private:
    class PaintEngine : public QPaintEngine
    {
    public:
        PaintEngine()
            : QPaintEngine(AllFeatures)
        {}
        bool begin(QPaintDevice* /*device*/) override
        {
            mPages.emplace_back();
            return true;
        }
        bool end() override { return true; }
        void updateState(const QPaintEngineState& present) override
        {
            mTransform = present.transform();
        }
        void drawPixmap(const QRectF& /*target*/, const QPixmap& /*picture*/,
                        const QRectF& /*source*/) override
        {
            ++mPages.back().mPictures;
        }
        void drawImage(const QRectF& /*target*/, const QImage& /*picture*/,
                       const QRectF& /*source*/, Qt::ImageConversionFlags /*flags*/) override
        {
            ++mPages.back().mPictures;
        }
        void drawTextItem(const QPointF& place, const QTextItem& item) override
        {
            mPages.back().mTexts.push_back({item.text(), mTransform.map(place)});
        }
        void drawPolygon(const QPointF* /*points*/, int /*number*/,
                         PolygonDrawMode /*mode*/) override
        {}
        Type type() const override { return User; }

        std::vector<Page> mPages;

    private:
        QTransform mTransform;
    };

    class PrintEngine : public QPrintEngine
    {
    public:
        explicit PrintEngine(PaintEngine& paintEngine)
            : mPaintEngine(paintEngine)
        {}
        void setProperty(PrintEnginePropertyKey key, const QVariant& value) override
        {
            if (key == PPK_QPageLayout) {
                mLayout = value.value<QPageLayout>();
            } else if (key == PPK_FullPage) {
                mLayout.setMode(value.toBool() ? QPageLayout::FullPageMode
                                               : QPageLayout::StandardMode);
            }
        }
        QVariant property(PrintEnginePropertyKey key) const override
        {
            switch (key) {
            case PPK_QPageLayout:
                return QVariant::fromValue(mLayout);
            case PPK_FullPage:
                return mLayout.mode() == QPageLayout::FullPageMode;
            case PPK_CopyCount:
            case PPK_NumberOfCopies:
                return 1;
            case PPK_Resolution:
                return RESOLUTION;
            default:
                return {};
            }
        }
        bool newPage() override
        {
            mPaintEngine.mPages.emplace_back();
            return true;
        }
        bool abort() override { return false; }
        int metric(QPaintDevice::PaintDeviceMetric metric) const override
        {
            const QRect paint = mLayout.paintRectPixels(RESOLUTION);
            switch (metric) {
            case QPaintDevice::PdmWidth:
                return paint.width();
            case QPaintDevice::PdmHeight:
                return paint.height();
            case QPaintDevice::PdmDpiX:
            case QPaintDevice::PdmDpiY:
            case QPaintDevice::PdmPhysicalDpiX:
            case QPaintDevice::PdmPhysicalDpiY:
                return RESOLUTION;
            case QPaintDevice::PdmDevicePixelRatio:
                return 1;
            default:
                return 0;
            }
        }
        QPrinter::PrinterState printerState() const override
        {
            return mPaintEngine.mPages.empty() ? QPrinter::Idle : QPrinter::Active;
        }

    private:
        static constexpr int RESOLUTION = 96;

        PaintEngine& mPaintEngine;
        QPageLayout mLayout{QPageSize(QPageSize::A4), QPageLayout::Portrait,
                            QMarginsF(10.0, 10.0, 10.0, 10.0), QPageLayout::Millimeter};
    };

    PaintEngine mPaintEngine;
    PrintEngine mPrintEngine{mPaintEngine};
};
