// Where an automatic text lands on the drawing sheet, and the marker that shows it on a small picture of the sheet.
#pragma once

#include "framework/framework.h"

// Cosine, sine, minus sine and cosine of a text's angle.
struct Rotation {
    int a = 0;
    int b = 0;
    int c = 0;
    int d = 0;
};

// Sets the rotation of an orientation: 0 horizontal, 1 upwards, 2 downwards. Any other leaves it as it is.
void SetRotation(int orientation, Rotation& rotation);

struct Placement {
    int orientation = 1;
    Rotation rotation{};
    // In the units of the sheet.
    double height = 2.5;
    // In degrees: 0, 90 or -90.
    int angle = 90;
    // From the lower left corner of the sheet, rightwards and upwards.
    int y = 0;
    int x = 5;
};

// Takes over what a stored text says. A part whose separator is missing stays as it is, except for the angle, which is
// what remains.
void ParsePlacement(LPCSTR text, Placement& placement);
// The text that is stored.
CString PlacementText(const Placement& placement);

// Sets orientation and rotation to the angle's. Another angle than the three leaves both as they are.
void SetPlacementAngle(int angle, Placement& placement);
// The angle of an orientation; `former` for one that is none of the three.
int AngleFromIndex(int orientation, int former);

struct Marker {
    RECT box;
    // Along the edge at which the text starts.
    RECT bar;
};

// The marker of a text with the placement's position and height. The frame, in client coordinates of whoever draws,
// stands for a sheet of the given size. FALSE for a sheet without a size.
BOOL PlaceMarker(const RECT& frame, SIZE sheet, const Placement& placement, int barThickness, Marker& marker);
