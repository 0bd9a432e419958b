#pragma once

#include <string>
#include <vector>

#include "simulator/charts/canvas.h"
#include "simulator/charts/contours.h"

namespace sim {

enum class FrontKind { cold, warm };

// Triangles or semicircles stand on the right-hand side of the line.
void drawFront(Canvas& canvas, const Polyline& line, FrontKind kind);

// A barb of the southern hemisphere: feathers on the side of the lower pressure. The angle is
// where the wind comes from, clockwise from up on the drawing, in degrees.
void drawBarb(Canvas& canvas, MapPoint at, double angle, int speedKt, Colour colour, double size);

// A closed area with scallops bulging outwards.
void drawScallopedArea(Canvas& canvas, const Polyline& outline, Colour colour);

void drawDashedArea(Canvas& canvas, const Polyline& outline, Colour colour);

void drawArrow(Canvas& canvas, const Polyline& line, Colour colour, double lineWidth);

// A framed label; its middle is at the point.
void drawLabelBox(Canvas& canvas, MapPoint middle, const std::vector<std::string>& lines,
                  Colour colour);
MapRect labelBoxRect(const Canvas& canvas, MapPoint middle, const std::vector<std::string>& lines);

double lengthOf(const Polyline& line);

// Points along a line at equal distances of about the step.
Polyline resample(const Polyline& line, double step);

}  // namespace sim
