// The views that navigation adds to the listing bar.
#pragma once

class CListBar;

// Offers call tree and function information to a new bar.
void OfferCodeWindows(CListBar &bar);
