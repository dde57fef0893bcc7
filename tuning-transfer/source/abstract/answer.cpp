#include "tuning-transfer/source/abstract/answer.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-common/source/text.h"

#include <stdexcept>

namespace t_transfer::abstract
{
Json::Value answerGet(const std::string& text)
{
    auto jResponse = t_common::JsonApp::fromString(text);
    if (!jResponse.isObject())
    {
        throw std::runtime_error("JSON parse failed: the answer is no object but \"" +
                                 t_common::printable(text, t_common::limit::jsonExcerpt) + "\"");
    }
    return jResponse;
}
} // namespace t_transfer::abstract
