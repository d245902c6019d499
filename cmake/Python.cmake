# What runs the scripts, as the beginning of a command. `python3` may be a script itself, which looks for the version that
# somebody chose: five times the time of most of what it starts here, and a run of all tests starts it some 900 times.
execute_process(
    COMMAND python3 -c "import sys; print(sys.executable)"
    OUTPUT_VARIABLE python_program
    OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(python ${python_program} -B)
