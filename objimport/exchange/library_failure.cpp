#include "objimport/exchange/library_failure.h"

#include "objimport/exchange/exchange_texts.h"

#include <Standard_Failure.hxx>
#include <Standard_OutOfMemory.hxx>
#include <exception>
#include <new>

std::optional<std::string> FailureOf(const std::function<void()>& work)
{
    try {
        work();
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (const Standard_OutOfMemory&) {
        throw std::bad_alloc();
    } catch (const Standard_Failure& failure) {
        const std::string text = failure.GetMessageString();
        return Say(ExchangeTexts::LibrarySays,
                   {text.empty() ? std::string(failure.DynamicType()->Name()) : text});
    }
}
