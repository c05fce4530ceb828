"""A second implementation of Plotvane's calculator, written from its rules alone.

It shares no code and no structure with the C++ engine: failures are Python exceptions, tokens are tuples,
texts of numbers come from exact decimal arithmetic. It is slow and plain on purpose; its only use is to be
held against the real engine, line by line.
"""
