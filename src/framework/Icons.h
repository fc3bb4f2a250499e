// The program's drawings, recoloured for the light or dark desktop and sharp at any scale.
#pragma once

#include <QIcon>
#include <string>

// The drawing `name` of the icon set; a null icon when there is none. Follows a change of the palette.
QIcon LoadIcon(const std::string &name);
