// Nothing but the carrier of the standard library's headers: they are compiled once (see project.cmake).
