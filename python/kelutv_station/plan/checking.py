"""Holds a plan against the interface before a unit is touched."""

from __future__ import annotations

from collections.abc import Mapping
from dataclasses import dataclass, replace
from typing import Any

from kelutv_station.plan.arguments import taken
from kelutv_station.plan.interface import Event, Function, Interface
from kelutv_station.plan.limits import Limit
from kelutv_station.plan.outputs import RESULT, result_names
from kelutv_station.plan.plan import Call, Operation, Plan, PlanError, Step, Unit, Wait, operations_of
from kelutv_station.plan.reading import PLACEHOLDER, require_units
from kelutv_station.tool import ToolError


@dataclass(frozen=True)
class ReadyCall:
    """A function and what it is called with."""

    function: Function
    arguments: tuple[Any, ...]


@dataclass(frozen=True)
class ReadyWait:
    """An event and the fields that it is to have."""

    event: Event
    fields: Mapping[str, Any]


@dataclass(frozen=True)
class ReadyPlan:
    """A plan that can be carried out: of each step it is known whether it may be repeated, of each call its arguments."""

    plan: Plan
    calls: Mapping[tuple[str, str], ReadyCall]
    waits: Mapping[str, ReadyWait]

    def call(self, unit: Unit, step: Step) -> ReadyCall | None:
        """What a step calls on a unit, or None."""
        return self.calls.get((unit.serial, step.name))


def ready_plan(plan: Plan, interface: Interface) -> ReadyPlan:
    """The plan, checked and with names resolved. Raises PlanError."""
    require_units(plan)
    dangerous = {step.name: _dangers(plan, step, interface) for step in plan.steps}
    _require_allowed(plan, dangerous, interface)
    plan = replace(plan, steps=tuple(_with_repeat(step, bool(dangerous[step.name])) for step in plan.steps))
    calls, waits = {}, {}
    for step in plan.steps:
        if isinstance(step, Call):
            _require_limits(plan, step, _function(plan, step, step.operation, interface))
        for operation in operations_of(step):
            for unit in plan.units:
                calls[unit.serial, step.name] = _ready_call(plan, step, operation, unit, interface)
        if isinstance(step, Wait):
            waits[step.name] = _ready_wait(plan, step, interface)
    return ReadyPlan(plan, calls, waits)


def _function(plan: Plan, step: Step, operation: Operation, interface: Interface) -> Function:
    try:
        return interface.function(operation.function)
    except ToolError as error:
        raise PlanError(f"{plan.place_of(step)}: {error}") from error


def _dangers(plan: Plan, step: Step, interface: Interface) -> list[Function]:
    functions = [_function(plan, step, operation, interface) for operation in operations_of(step)]
    return [function for function in functions if function.dangerous]


def _require_allowed(plan: Plan, dangerous: Mapping[str, list[Function]], interface: Interface) -> None:
    """Every dangerous function is named, and nothing else."""
    allowed = {}
    for name in plan.allow:
        try:
            allowed[interface.function(name).name] = name
        except ToolError as error:
            raise PlanError(f"{plan.place}: allow: {error}") from error
    called = set()
    for step in plan.steps:
        for function in dangerous[step.name]:
            called.add(function.name)
            if function.name not in allowed:
                raise PlanError(
                    f"{plan.place_of(step)}: {function.short} is dangerous: it may lose what nothing puts back, or leave the "
                    f'television unusable; a plan that is to call it says allow = ["{function.short}"]')
    for function_name, name in allowed.items():
        if function_name not in called:
            raise PlanError(f"{plan.place}: allow: no step calls {name}, or it is not dangerous; allow names nothing else")


def _require_limits(plan: Plan, step: Call, function: Function) -> None:
    """Each limit is of something that the function gives, and texts are names of its enumeration."""
    names = result_names(function.module, function.name, function.outputs) if step.limits else ()
    for name, limit in step.limits.items():
        if name not in names:
            raise PlanError(
                f"{plan.place_of(step)}: {function.short} gives no {name} to be limited; it gives: "
                f"{', '.join(names) or 'nothing'}")
        if name == RESULT and function.result.values:
            _require_names(plan.place_of(step), limit, function)


def _require_names(place: str, limit: Limit, function: Function) -> None:
    try:
        for text in (limit.equals, *(limit.one_of or ())):
            function.result.value_of(text)
    except ValueError as error:
        raise PlanError(f"{place}: {error}") from error


def _with_repeat(step: Step, is_dangerous: bool) -> Step:
    """What is dangerous is done once unless the plan says otherwise."""
    return replace(step, repeat=not is_dangerous) if step.repeat is None else step


def _ready_call(plan: Plan, step: Step, operation: Operation, unit: Unit, interface: Interface) -> ReadyCall:
    function = _function(plan, step, operation, interface)
    place = f"{plan.place_of(step)}: unit {unit.serial}"
    arguments = [_filled(place, argument, unit) for argument in operation.arguments]
    try:
        interface.require_arguments(function, arguments)
        fields = function.inputs if len(arguments) == len(function.inputs) else _without_counts(function)
        return ReadyCall(function, taken(function, fields, arguments))
    except (ToolError, ValueError) as error:
        raise PlanError(f"{place}: {error}") from error


def _without_counts(function: Function) -> tuple[Any, ...]:
    return tuple(field for field in function.inputs if not field.is_count)


def _filled(place: str, argument: Any, unit: Unit) -> Any:
    """The argument with the unit's values in the place of {serial} and of other names in braces."""
    if isinstance(argument, list):
        return [_filled(place, entry, unit) for entry in argument]
    if isinstance(argument, dict):
        return {name: _filled(place, entry, unit) for name, entry in argument.items()}
    if not isinstance(argument, str):
        return argument
    values: dict[str, int | str] = {"serial": unit.serial, **unit.values}
    for name in PLACEHOLDER.findall(argument):
        if name not in values:
            raise PlanError(f"{place} has no value '{name}' for {argument}; it has: {', '.join(values)}")
    whole = PLACEHOLDER.fullmatch(argument)
    return values[whole[1]] if whole else PLACEHOLDER.sub(lambda match: str(values[match[1]]), argument)


def _ready_wait(plan: Plan, step: Wait, interface: Interface) -> ReadyWait:
    place = plan.place_of(step)
    try:
        event = interface.event(step.event)
        fields = {field.name: field for field in event.fields}
        for name in step.fields:
            if name not in fields:
                raise PlanError(f"{place}: {event.name} has no field {name}; it has: {', '.join(fields) or 'none'}")
        return ReadyWait(event, {name: fields[name].value_of(value) for name, value in step.fields.items()})
    except (ToolError, ValueError) as error:
        raise PlanError(f"{place}: {error}") from error


def needs_events(plan: Plan) -> bool:
    """Whether a step waits for an event."""
    return any(isinstance(step, Wait) for step in plan.steps)


