int unusedForNow();
