// SPDX-License-Identifier: MIT
// When people are there to answer.
import {byId, element} from './dom.js';
import {readSettings, saveSchedules} from './api.js';

const days = ['Mon', 'Tue', 'Wed', 'Thu', 'Fri', 'Sat', 'Sun'];
// Only the time of day and the zone count.
const anyDay = '2026-01-05';
const timePattern = /T(?<time>\d\d:\d\d)(?::\d\d)?(?:\.\d+)?(?<zone>Z|[+-]\d\d:?\d\d)$/u;

const dialog = byId('schedules-dialog');
const list = byId('schedules');

const partsOf = (text) => timePattern.exec(text)?.groups ?? {time: '', zone: 'Z'};

function labelled(text, input) {
    return element('label', {}, text, input);
}

function dayInput(day, isChosen) {
    return element('label', {className: 'day'},
        element('input', {type: 'checkbox', value: day, checked: isChosen}), day);
}

function row(schedule) {
    const start = partsOf(schedule.startTime);
    const end = partsOf(schedule.endTime);
    const text = (name, value, properties = {}) =>
        element('input', {name, value, required: true, ...properties});
    const made = element('fieldset', {className: 'schedule'},
        element('legend', {className: 'unseen'}, `Schedule ${schedule.id}`),
        labelled('Name', text('id', schedule.id, {maxLength: 60})),
        element('div', {className: 'days', role: 'group', 'aria-label': 'Days'},
            ...days.map((day) => dayInput(day, schedule.days.includes(day)))),
        labelled('From', text('start', start.time, {type: 'time'})),
        labelled('Zone', text('startZone', start.zone, {className: 'zone'})),
        labelled('To', text('end', end.time, {type: 'time'})),
        labelled('Zone', text('endZone', end.zone, {className: 'zone'})));
    for (const zone of made.querySelectorAll('.zone'))
        zone.pattern = 'Z|[+\\-][0-9]{2}:?[0-9]{2}';
    const remove = element('button', {
        type: 'button', className: 'quiet', 'aria-label': `Remove ${schedule.id}`,
    }, '×');
    remove.addEventListener('click', () => {
        made.remove();
        byId('add-schedule').focus();
    });
    made.append(remove);
    return made;
}

function scheduleIn(made) {
    const value = (name) => made.querySelector(`[name="${name}"]`).value;
    return {
        id: value('id'),
        startTime: `${anyDay}T${value('start')}:00${value('startZone')}`,
        endTime: `${anyDay}T${value('end')}:00${value('endZone')}`,
        days: [...made.querySelectorAll('[type="checkbox"]:checked')].map((day) => day.value),
    };
}

function fail(error) {
    byId('schedules-failure').textContent = error?.message ?? '';
}

function add() {
    const made = row({
        id: `schedule-${list.children.length + 1}`, days: days.slice(0, 5),
        startTime: `${anyDay}T09:00:00Z`, endTime: `${anyDay}T18:00:00Z`,
    });
    list.append(made);
    made.querySelector('input').focus();
}

async function open(failed) {
    try {
        const {schedules} = await readSettings();
        fail(null);
        list.replaceChildren(...schedules.map(row));
        dialog.showModal();
    } catch (error) {
        failed(error);
    }
}

/** `saved` is called after each save, `failed` when there is nothing to edit. */
export function startSchedules(saved, failed) {
    byId('open-schedules').addEventListener('click', () => open(failed));
    byId('add-schedule').addEventListener('click', add);
    dialog.addEventListener('submit', async (event) => {
        event.preventDefault();
        try {
            await saveSchedules([...list.children].map(scheduleIn));
            dialog.close();
            saved();
        } catch (error) {
            fail(error);
        }
    });
}
