#include "foundation/text/MCharFilter.h"

bool MCharFilter::AllFilter::Accept(MChar) const {
    return true;
}

uint8_t MCharFilter::AllFilter::GetFlags() const {
    return Letters | Digits | Separators | OtherCharacters;
}

bool MCharFilter::LettersFilter::Accept(MChar character) const {
    return character.IsLetter();
}

uint8_t MCharFilter::LettersFilter::GetFlags() const {
    return Letters;
}

bool MCharFilter::AlphaStrictFilter::Accept(MChar character) const {
    return character.IsAlphanumeric();
}

uint8_t MCharFilter::AlphaStrictFilter::GetFlags() const {
    return Letters | Digits;
}

bool MCharFilter::AlphaFilter::Accept(MChar character) const {
    return character.IsAlphanumeric() || character == '-' || character == '.' || character == ' ';
}

uint8_t MCharFilter::AlphaFilter::GetFlags() const {
    return Letters | Digits | Separators;
}

bool MCharFilter::IntegerFilter::Accept(MChar character) const {
    return character.IsDigit() || character == '-';
}

uint8_t MCharFilter::IntegerFilter::GetFlags() const {
    return Digits;
}

bool MCharFilter::IntegerHexaFilter::Accept(MChar character) const {
    const MChar lower = character.ToLower();
    return character.IsDigit() || (lower >= 'a' && lower <= 'f');
}

uint8_t MCharFilter::IntegerHexaFilter::GetFlags() const {
    return Digits | HexadecimalLetters;
}

bool MCharFilter::FloatFilter::Accept(MChar character) const {
    return character.IsDigit() || character == '-' || character == '.';
}

uint8_t MCharFilter::FloatFilter::GetFlags() const {
    return Digits | Separators;
}
