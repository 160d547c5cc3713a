# Run at each build: writes OUTPUT, the stamp by which a program's file tells what it was built from, and leaves
# it alone when nothing changed. SOURCE is the tree, VERSION its version.
set(stamp "console ${VERSION}")
# Only this tree's own repository: a firmware's build unpacks it into a tree that may have another.
if(EXISTS ${SOURCE}/.git)
  execute_process(COMMAND git -C ${SOURCE} describe --always --dirty --exclude=* OUTPUT_VARIABLE commit
    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
  if(NOT failed)
    string(APPEND stamp " (${commit})")
  endif()
endif()
file(CONFIGURE OUTPUT ${OUTPUT} CONTENT [[extern "C" const char console_version[];
// Nothing shows the commit; strings(1) finds it.
const char console_version[] = "@stamp@";
]] @ONLY)
