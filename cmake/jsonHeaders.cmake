# The JSON library is headers only and the same for every system, so a cross build takes the machine's own. They are
# copied, so that none of the machine's other headers come with them.
find_path(BRASQUELIN_JSON_HEADERS nlohmann/json.hpp REQUIRED NO_CMAKE_FIND_ROOT_PATH
          PATHS /usr/include /usr/local/include)
file(COPY ${BRASQUELIN_JSON_HEADERS}/nlohmann DESTINATION ${CMAKE_BINARY_DIR}/json)
target_include_directories(brasquelin_logic SYSTEM PRIVATE ${CMAKE_BINARY_DIR}/json)
