/* SPDX-License-Identifier: Apache-2.0 */
/* The interface as a C program uses it: a message there and back. */
#include <pps/decoder.h>
#include <pps/encoder.h>

#include <stdio.h>
#include <string.h>

static int encode(char* text, size_t size)
{
    pps_encoder_t encoder;
    const char* buffer;
    int result = -1;
    pps_encoder_initialize(&encoder, false);
    if (pps_encoder_add_object_name(&encoder, "@control") == 0 &&
        pps_encoder_add_string(&encoder, "msg", "hello") == 0 &&
        pps_encoder_start_object(&encoder, "dat") == 0 &&
        pps_encoder_add_int(&encoder, "id", 42) == 0 && pps_encoder_end_object(&encoder) == 0 &&
        (buffer = pps_encoder_buffer(&encoder)) != NULL && pps_encoder_length(&encoder) < size) {
        strcpy(text, buffer);
        result = 0;
    }
    pps_encoder_cleanup(&encoder);
    return result;
}

static int decode(char* text)
{
    pps_decoder_t decoder;
    const char* message = NULL;
    int id = 0;
    int result = -1;
    if (pps_decoder_initialize(&decoder, text) == 0 &&
        pps_decoder_push(&decoder, "@control") == 0 &&
        pps_decoder_get_string(&decoder, "msg", &message) == 0 &&
        pps_decoder_push(&decoder, "dat") == 0 && pps_decoder_get_int(&decoder, "id", &id) == 0 &&
        strcmp(message, "hello") == 0 && id == 42)
        result = 0;
    pps_decoder_cleanup(&decoder);
    return result;
}

int main(void)
{
    char text[256];
    if (encode(text, sizeof text) != 0 ||
        strcmp(text, "@control\nmsg::hello\ndat:json:{\"id\":42}\n") != 0) {
        fputs("the message is not encoded as it should be\n", stderr);
        return 1;
    }
    if (decode(text) != 0) {
        fputs("the message is not decoded as it should be\n", stderr);
        return 1;
    }
    return 0;
}
