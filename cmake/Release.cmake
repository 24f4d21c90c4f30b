# The newest entry of the changelog is the release: its version, its date and who made it. A new
# release is one new entry there; the program's --version, the package, the software-centre
# metadata and the man page all take it from here.
#   GRUMBO_VERSION       1.0
#   GRUMBO_RELEASE_DATE  2026-11-25
#   GRUMBO_MAINTAINER    The Grumbo 2 developers <grumbo2@example.org>
set(GRUMBO_CHANGELOG ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${GRUMBO_CHANGELOG})

file(STRINGS ${GRUMBO_CHANGELOG} grumbo_heading LIMIT_COUNT 1 REGEX "^grumbo2 \\(")
file(STRINGS ${GRUMBO_CHANGELOG} grumbo_trailer LIMIT_COUNT 1 REGEX "^ -- ")
if(NOT grumbo_heading MATCHES "^grumbo2 \\(([0-9]+(\\.[0-9]+)*)\\) ")
    message(FATAL_ERROR "CHANGELOG: no release at the top, or a version that is not 1.2.3")
endif()
set(GRUMBO_VERSION ${CMAKE_MATCH_1})
if(NOT grumbo_trailer MATCHES
   "^ -- (.+ <[^>]+>)  [A-Z][a-z][a-z], ([0-9]?[0-9]) ([A-Z][a-z][a-z]) ([0-9][0-9][0-9][0-9]) ")
    message(FATAL_ERROR "CHANGELOG: the newest entry has no ' -- name <mail>  date' line")
endif()
set(GRUMBO_MAINTAINER ${CMAKE_MATCH_1})
set(grumbo_day ${CMAKE_MATCH_2})
set(grumbo_year ${CMAKE_MATCH_4})
set(grumbo_months Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec)
list(FIND grumbo_months ${CMAKE_MATCH_3} grumbo_month)
if(grumbo_month LESS 0)
    message(FATAL_ERROR "CHANGELOG: '${CMAKE_MATCH_3}' is no month")
endif()
math(EXPR grumbo_month "${grumbo_month} + 1")
string(REGEX REPLACE "^([0-9])$" "0\\1" grumbo_month ${grumbo_month})
string(REGEX REPLACE "^([0-9])$" "0\\1" grumbo_day ${grumbo_day})
set(GRUMBO_RELEASE_DATE ${grumbo_year}-${grumbo_month}-${grumbo_day})
