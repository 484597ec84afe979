# Warnings that every target of ours compiles with; they are errors.
function(qfr_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference)
endfunction()
