// SPDX-License-Identifier: Apache-2.0
#include <tamomock/ZelAudioMixerImpl.h>

namespace tamomock {

ZelAudioMixerImpl::~ZelAudioMixerImpl() = default;

int ZelAudioMixerImpl::requestEvents(int flags)
{
    return audiomixer_request_events(flags);
}

int ZelAudioMixerImpl::getDomain()
{
    return audiomixer_get_domain();
}

int ZelAudioMixerImpl::setOutputLevel(audiomixer_output_t output, double level)
{
    return audiomixer_set_output_level(output, level);
}

int ZelAudioMixerImpl::setInputLevel(audiomixer_input_t input, double level)
{
    return audiomixer_set_input_level(input, level);
}

int ZelAudioMixerImpl::adjustOutputLevel(audiomixer_output_t output, double change)
{
    return audiomixer_adjust_output_level(output, change);
}

int ZelAudioMixerImpl::adjustInputLevel(audiomixer_input_t input, double change)
{
    return audiomixer_adjust_input_level(input, change);
}

int ZelAudioMixerImpl::setOutputMute(audiomixer_output_t output, bool mute)
{
    return audiomixer_set_output_mute(output, mute);
}

int ZelAudioMixerImpl::setInputMute(audiomixer_input_t input, bool mute)
{
    return audiomixer_set_input_mute(input, mute);
}

int ZelAudioMixerImpl::toggleOutputMute(audiomixer_output_t output)
{
    return audiomixer_toggle_output_mute(output);
}

int ZelAudioMixerImpl::toggleInputMute(audiomixer_input_t input)
{
    return audiomixer_toggle_input_mute(input);
}

int ZelAudioMixerImpl::getOutputLevel(audiomixer_output_t output, double* level)
{
    return audiomixer_get_output_level(output, level);
}

int ZelAudioMixerImpl::getInputLevel(audiomixer_input_t input, double* level)
{
    return audiomixer_get_input_level(input, level);
}

int ZelAudioMixerImpl::getOutputMute(audiomixer_output_t output, bool* mute)
{
    return audiomixer_get_output_mute(output, mute);
}

int ZelAudioMixerImpl::getInputMute(audiomixer_input_t input, bool* mute)
{
    return audiomixer_get_input_mute(input, mute);
}

double ZelAudioMixerImpl::eventGetOutputLevel(const zel_event_t* event, audiomixer_output_t output)
{
    return audiomixer_event_get_output_level(event, output);
}

double ZelAudioMixerImpl::eventGetInputLevel(const zel_event_t* event, audiomixer_input_t input)
{
    return audiomixer_event_get_input_level(event, input);
}

bool ZelAudioMixerImpl::eventGetOutputMute(const zel_event_t* event, audiomixer_output_t output)
{
    return audiomixer_event_get_output_mute(event, output);
}

bool ZelAudioMixerImpl::eventGetInputMute(const zel_event_t* event, audiomixer_input_t input)
{
    return audiomixer_event_get_input_mute(event, input);
}

bool ZelAudioMixerImpl::eventGetAvailable(const zel_event_t* event)
{
    return audiomixer_event_get_available(event);
}

} // namespace tamomock
