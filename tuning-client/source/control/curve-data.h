#pragma once

#include <qwt_series_data.h>

#include <QPointF>

#include <memory>

/// A growing series of points, fed by one thread and drawn by another. The feeding thread never waits for the drawing:
/// a point that comes while the series is locked stays pending until the next one.
class CurveData : public QwtSeriesData<QPointF>
{
public:
    CurveData();
    ~CurveData() override;

    /// Whoever reads through `size`, `sample` or `boundingRect` holds this lock.
    void lock();
    void unlock();

    size_t size() const override;
    QPointF sample(size_t index) const override;

    /// Of negative width and height while the series is empty.
    QRectF boundingRect() const override;

    /// The points come in the order of their x.
    void append(const QPointF& point);
    void clear();

    /// Drops the points with an x below the limit, but for the newest of them, which the curve comes in from.
    void clear(double limit);

private:
    struct PrivateData;
    const std::unique_ptr<PrivateData> d_data;
};
