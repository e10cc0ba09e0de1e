# QUOBRAK_PUGIXML: the XML library. To load a page is a multitude of calls of its smallest functions, so it takes a seventh
# less time where the library is linked statically. Not every system has it so.
find_package(pugixml REQUIRED)
if(TARGET pugixml::static)
  set(QUOBRAK_PUGIXML pugixml::static)
else()
  set(QUOBRAK_PUGIXML pugixml::pugixml)
endif()
