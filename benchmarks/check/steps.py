"""The commands of the scripts as steps, for the peer: each takes its arguments and does nothing."""

from behave import step

# pylint: disable=function-redefined, missing-function-docstring


@step("applicationStart {bundle_id}")
def application_start(context, bundle_id):
    pass


@step("clickByText {selector}")
def click_by_text(context, selector):
    pass


@step("clickByTextExact {selector}")
def click_by_text_exact(context, selector):
    pass


@step("findByText {selector} at rank {rank:d}")
def find_by_text(context, selector, rank):
    pass


@step("enterTextFast {text}")
def enter_text_fast(context, text):
    pass


@step("waitUntilText {selector} for {timeout:d} ms")
def wait_until_text(context, selector, timeout):
    pass


@step("measureStart {name}")
def measure_start(context, name):
    pass


@step("measureStop")
def measure_stop(context):
    pass


@step("pause {duration:d} ms")
def pause(context, duration):
    pass


@step("clickByPercent {x:d} {y:d}")
def click_by_percent(context, x, y):
    pass
