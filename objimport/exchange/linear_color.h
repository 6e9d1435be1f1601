#pragma once

/// Returns the amount of light, 0 to 1, that a colour channel of 0 to 255 stands for on a screen.
double LinearChannel(int channel);
