// What is compiled here are the headers before it.
