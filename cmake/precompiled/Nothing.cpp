// The source file of a library whose only use is its precompiled header.
