#pragma once

class CObjLineTokenizer;
class GK_Color;

/// Reads the colour that follows the keyword of the tokenizer's current line: three fractions of
/// red, green and blue, or a "spectral" or "xyz" colour, which is taken for white. A fraction that
/// is no number counts as 1. False when the line has no colour; `color` is then white.
bool ReadMtlColor(GK_Color& color, const CObjLineTokenizer& tokenizer);
