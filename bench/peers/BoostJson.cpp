// The one place where Boost.JSON, which is header-only here, is compiled.
#include <boost/json/src.hpp>
