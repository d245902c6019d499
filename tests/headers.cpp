// What is compiled here are the headers before it: see CMakeLists.txt.
