"""Waiting for a state, for tests of whole programs."""
import time

PATIENCE = 60  # seconds: a fault is told after it, a busy machine is not one


def wait_for(what, condition):
    """What the condition gives, once it is true."""
    end = time.monotonic() + PATIENCE
    while True:
        found = condition()
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"{what}: not after {PATIENCE} s")
        time.sleep(0.02)
