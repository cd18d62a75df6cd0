// SPDX-License-Identifier: Apache-2.0
#include "RequestValues.h"

#include "common/Failure.h"

namespace tamobox {

std::string requiredText(const MessageReader& request, const char* name, std::size_t longest)
{
    const std::optional<std::string> text = request.string(name);
    if (!text || text->size() > longest)
        throw Failure(std::string(name) + " must be a text of at most " + std::to_string(longest) +
                      " bytes");
    return *text;
}

std::optional<std::string> optionalText(const MessageReader& request, const char* name,
                                        std::size_t longest)
{
    if (!request.has(name))
        return std::nullopt;
    return requiredText(request, name, longest);
}

bool requiredFlag(const MessageReader& request, const char* name)
{
    const std::optional<bool> flag = request.boolean(name);
    if (!flag)
        throw Failure(std::string(name) + " must be true or false");
    return *flag;
}

int requiredInteger(const MessageReader& request, const char* name, int lowest, int highest)
{
    const std::optional<int> number = request.integer(name);
    if (!number || *number < lowest || *number > highest)
        throw Failure(std::string(name) + " must be a whole number from " + std::to_string(lowest) +
                      " to " + std::to_string(highest));
    return *number;
}

std::optional<int> optionalInteger(const MessageReader& request, const char* name, int lowest,
                                   int highest)
{
    if (!request.has(name))
        return std::nullopt;
    return requiredInteger(request, name, lowest, highest);
}

int requiredAngle(const MessageReader& request)
{
    const int angle = request.integer("angle").value_or(-1);
    if (angle != 0 && angle != 90 && angle != 180 && angle != 270)
        throw Failure("angle must be 0, 90, 180 or 270");
    return angle;
}

} // namespace tamobox
