// Carries the precompiled header of all tests.
