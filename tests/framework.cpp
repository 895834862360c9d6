// Nothing but the carrier of the headers that every native test includes: they are compiled once (see CMakeLists.txt).
