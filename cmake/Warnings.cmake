# Warnings are errors everywhere in this tree; headers of other projects are included as SYSTEM.
add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                    -Wold-style-cast -Woverloaded-virtual -Werror)
if(GAZETTEER_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
