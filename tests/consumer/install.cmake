# Installs what is built under `prefix`/staged and moves it to `prefix`/moved, where nobody can find
# it by a path that was built in.
file(REMOVE_RECURSE "${prefix}")
execute_process(COMMAND ${CMAKE_COMMAND} --install "${build}" --prefix "${prefix}/staged"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${prefix}/staged" "${prefix}/moved")
