#pragma once

#include <qwt_point_data.h>

/// A curve computed for the stretch that its plot shows, 0 to 64 on the x axis, with y up to 1024.
class TransferCurveData : public QwtSyntheticPointData
{
public:
    TransferCurveData() : QwtSyntheticPointData(65) {}
};

/// Colour adjustment: a parabola around the middle.
class CaCurveParabolicData : public TransferCurveData
{
public:
    explicit CaCurveParabolicData(double factor);

    double y(double x) const override;

private:
    double factor;
};

/// Colour adjustment: up to the inflection and on to the end.
class CaCurveSData : public TransferCurveData
{
public:
    CaCurveSData(int inflection, int exponent);

    double y(double x) const override;

private:
    int inflection;
    int exponent;
};

/// Dynamic contrast improvement: from the start to the inflection and on to the end.
class DciCurve2SectionData : public TransferCurveData
{
public:
    DciCurve2SectionData(double low, double high, double inflectionX, double inflectionY, double startY, double endY);

    double y(double x) const override;

protected:
    double low;
    double high;
    double inflectionX;
    double inflectionY;
    double startY;
    double endY;
};

/// The same with a middle section between two inflections.
class DciCurve3SectionData : public DciCurve2SectionData
{
public:
    DciCurve3SectionData(double low, double middle, double high, double inflectionX, double inflectionY, double startY,
                         double endY, double inflection2X, double inflection2Y);

    double y(double x) const override;

private:
    double middle;
    double inflection2X;
    double inflection2Y;
};
