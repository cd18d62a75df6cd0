// SPDX-License-Identifier: Apache-2.0
#ifndef TAMO_PPS_PPSMAPDECODER_H
#define TAMO_PPS_PPSMAPDECODER_H

#include <QtCore/QByteArray>
#include <QtCore/QVarLengthArray>
#include <QtCore/QVariant>

#include <pps/decoder.h>

namespace tamo {

class NameCache;

/** Turns PPS text into a map. Its functions throw tamo::Exception for malformed text. */
class PpsMapDecoder
{
public:
    /** Parses a copy of the text. */
    explicit PpsMapDecoder(const QByteArray& text);
    ~PpsMapDecoder();
    PpsMapDecoder(const PpsMapDecoder&) = delete;
    PpsMapDecoder& operator=(const PpsMapDecoder&) = delete;

    /** The members of the object that the decoder is in, which is at first the whole text. */
    QVariantMap members();

private:
    QString nameFrom(const char* utf8);

    /**
     * Makes a variant of the value that the decoder stands on.
     *
     * @param place makes the variant where it is to be, with the value it is given, and returns it
     */
    template<class Place>
    void value(Place place);

    QVariantList elements();

    NameCache* const m_names;
    QVarLengthArray<char, 2048> m_text;
    pps_decoder_t m_decoder;
};

} // namespace tamo

#endif
