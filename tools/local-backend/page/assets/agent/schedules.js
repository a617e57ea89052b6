// SPDX-License-Identifier: MIT
// The dialog for the opening hours of human agents.
import {byId, element} from './dom.js';
import {readSettings, saveSchedules} from './api.js';

const days = ['Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat', 'Sun'];
// Clients use the time of day and the zone only; the date is arbitrary.
const anyDate = '2026-01-05';
const timePattern = /T(?<time>\d\d:\d\d)(?::\d\d)?(?:\.\d+)?(?<zone>Z|[+-]\d\d:?\d\d)$/u;

const dialog = byId('schedules-dialog');
const list = byId('schedules');

const timeAndZone = (text) => timePattern.exec(text)?.groups ?? {time: '', zone: 'Z'};

function labelled(text, input) {
    return element('label', {}, text, input);
}

function dayInput(day, isChecked) {
    return element('label', {className: 'day'},
        element('input', {type: 'checkbox', value: day, checked: isChecked}), day);
}

function scheduleElement(schedule) {
    const start = timeAndZone(schedule.startTime);
    const end = timeAndZone(schedule.endTime);
    const text = (name, value, properties = {}) =>
        element('input', {name, value, required: true, ...properties});
    const row = element('fieldset', {className: 'schedule'},
        element('legend', {className: 'visually-hidden'}, `Schedule ${schedule.id}`),
        labelled('Name', text('id', schedule.id, {maxLength: 60})),
        element('div', {className: 'days', role: 'group', 'aria-label': 'Days'},
            ...days.map((day) => dayInput(day, schedule.days.includes(day)))),
        labelled('From', text('start', start.time, {type: 'time'})),
        labelled('Zone', text('startZone', start.zone, {className: 'zone'})),
        labelled('To', text('end', end.time, {type: 'time'})),
        labelled('Zone', text('endZone', end.zone, {className: 'zone'})));
    for (const zone of row.querySelectorAll('.zone'))
        zone.pattern = 'Z|[+\\-][0-9]{2}:?[0-9]{2}';
    const remove = element('button', {
        type: 'button', className: 'flat', 'aria-label': `Remove ${schedule.id}`,
    }, '×');
    remove.addEventListener('click', () => {
        row.remove();
        byId('add-schedule').focus();
    });
    row.append(remove);
    return row;
}

function scheduleFrom(row) {
    const value = (name) => row.querySelector(`[name="${name}"]`).value;
    return {
        id: value('id'),
        startTime: `${anyDate}T${value('start')}:00${value('startZone')}`,
        endTime: `${anyDate}T${value('end')}:00${value('endZone')}`,
        days: [...row.querySelectorAll('[type="checkbox"]:checked')].map((day) => day.value),
    };
}

function showError(error) {
    byId('schedules-failure').textContent = error?.message ?? '';
}

function add() {
    const row = scheduleElement({
        id: `schedule-${list.children.length + 1}`, days: days.slice(0, 5),
        startTime: `${anyDate}T09:00:00Z`, endTime: `${anyDate}T18:00:00Z`,
    });
    list.append(row);
    row.querySelector('input').focus();
}

async function open(reportError) {
    try {
        const {schedules} = await readSettings();
        showError(null);
        list.replaceChildren(...schedules.map(scheduleElement));
        dialog.showModal();
    } catch (error) {
        reportError(error);
    }
}

/** `saved` is called after each save, `reportError` when the settings cannot be read. */
export function startSchedules(saved, reportError) {
    byId('open-schedules').addEventListener('click', () => open(reportError));
    byId('add-schedule').addEventListener('click', add);
    dialog.addEventListener('submit', async (event) => {
        event.preventDefault();
        try {
            await saveSchedules([...list.children].map(scheduleFrom));
            dialog.close();
            saved();
        } catch (error) {
            showError(error);
        }
    });
}
