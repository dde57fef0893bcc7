#include "tuning-client/source/control/curve-data.h"

#include <QMutex>
#include <QReadWriteLock>
#include <QRectF>
#include <QVector>

#include <algorithm>

struct CurveData::PrivateData
{
    QReadWriteLock lock;
    QVector<QPointF> values;
    QRectF boundingRect{1.0, 1.0, -2.0, -2.0};
    QMutex mutex;
    QVector<QPointF> pendingValues;

    void append(const QPointF& point)
    {
        values.append(point);
        if (boundingRect.width() < 0 || boundingRect.height() < 0)
        {
            boundingRect = QRectF(point, QSizeF(0.0, 0.0));
            return;
        }
        boundingRect.setRight(point.x());
        boundingRect.setTop(std::min(boundingRect.top(), point.y()));
        boundingRect.setBottom(std::max(boundingRect.bottom(), point.y()));
    }
};

CurveData::CurveData() : d_data(std::make_unique<PrivateData>()) {}

CurveData::~CurveData() = default;

void CurveData::lock() { d_data->lock.lockForRead(); }

void CurveData::unlock() { d_data->lock.unlock(); }

size_t CurveData::size() const { return d_data->values.size(); }

QPointF CurveData::sample(size_t index) const { return d_data->values[static_cast<int>(index)]; }

QRectF CurveData::boundingRect() const { return d_data->boundingRect; }

void CurveData::append(const QPointF& point)
{
    const QMutexLocker locker(&d_data->mutex);
    d_data->pendingValues.append(point);
    if (d_data->lock.tryLockForWrite())
    {
        for (const auto& pendingPoint : std::as_const(d_data->pendingValues))
            d_data->append(pendingPoint);
        d_data->pendingValues.clear();
        d_data->lock.unlock();
    }
}

void CurveData::clear()
{
    // append only tries the lock, so waiting for its mutex here cannot end in a deadlock.
    const QWriteLocker locker(&d_data->lock);
    const QMutexLocker mutexLocker(&d_data->mutex);
    d_data->values.clear();
    d_data->pendingValues.clear();
    d_data->boundingRect = QRectF(0.0, 0.0, -1.0, -1.0);
}

void CurveData::clear(double limit)
{
    const QWriteLocker locker(&d_data->lock);
    d_data->boundingRect = QRectF(1.0, 1.0, -2.0, -2.0);

    const auto values = d_data->values;
    d_data->values.clear();
    d_data->values.reserve(values.size());

    auto stale = values.size() - 1;
    while (stale >= 0 && values[stale].x() >= limit)
        --stale;
    if (stale > 0)
        d_data->append(values[stale]);
    // The very last point of the series is left out.
    for (auto i = stale > 0 ? stale + 1 : 0; i < values.size() - 1; ++i)
        d_data->append(values[i]);
}
