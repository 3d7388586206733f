# Assembles the resource tree share/larkwood in the build folder: the
# repository's Data/ and User/ trees and loose Resources/ files, plus the npm
# editor components at the places the program looks for them.
set(LARKWOOD_RESOURCE_DIR ${PROJECT_BINARY_DIR}/share/larkwood)

add_custom_target(larkwood-resources ALL
    COMMAND bash ${PROJECT_SOURCE_DIR}/scripts/assemble-resources.sh
            ${PROJECT_SOURCE_DIR} ${LARKWOOD_RESOURCE_DIR}
    COMMENT "Assembling the resource tree"
    VERBATIM)
