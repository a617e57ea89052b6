// SPDX-License-Identifier: MIT
// Joins the parts of the page, and has the keys and switches that belong to none of them.
import {byId, prepareDialogs} from './dom.js';
import {changeTicket, listen, readSettings, readTickets, saveAutomatic} from './api.js';
import {chooseTicket, focusTickets, replaceTickets, startTickets, updateTicket} from './tickets.js';
import {
    refreshConversation, showConversation, shownTicket, startConversation,
} from './conversation.js';
import {composeFor, focusComposer, startComposer} from './composer.js';
import {openPush, startPush} from './push.js';
import {startBranding} from './branding.js';
import {startSchedules} from './schedules.js';

const noticeTime = 4000;
let chosen = null;

function show(id, text) {
    const place = byId(id);
    place.textContent = text;
    clearTimeout(place.timer);
    place.timer = setTimeout(() => { place.textContent = ''; }, noticeTime * (id === 'failure' ? 2 : 1));
}

const notice = (text) => show('notice', text);
const failure = (error) => show('failure', error.message);

/** Runs what may fail, and tells when it does. */
async function attempt(work) {
    try {
        await work();
    } catch (error) {
        failure(error);
    }
}

// The address names the ticket, so that back, forward and reload do what they do elsewhere.
const openTicket = (id) => { location.hash = id ? encodeURIComponent(id) : ''; };

async function followAddress() {
    const id = decodeURIComponent(location.hash.slice(1)) || null;
    const isOther = id !== chosen;
    chosen = id;
    document.body.dataset.pane = id ? 'conversation' : 'tickets';
    chooseTicket(id);
    composeFor(id);
    await showConversation(id);
    if (isOther && id)
        focusComposer();
}

function backToTickets() {
    document.body.dataset.pane = 'tickets';
    focusTickets();
}

// ---- What the backend tells

async function readAll() {
    byId('connection').dataset.state = 'live';
    byId('connection').textContent = 'Live';
    await attempt(async () => {
        replaceTickets(await readTickets());
        chooseTicket(chosen);
    });
    await Promise.all([showSettings(), refreshConversation()]);
}

function showLost() {
    byId('connection').dataset.state = 'lost';
    byId('connection').textContent = 'Reconnecting';
}

function takeTicket(ticket) {
    updateTicket(ticket);
    chooseTicket(chosen);
    if (ticket.id === chosen)
        refreshConversation();
}

const showSettings = () => attempt(async () => {
    byId('automatic').checked = (await readSettings()).automatic;
    byId('automatic').disabled = false;
});

// ---- What the agent does

async function change(what) {
    const ticket = shownTicket();
    if (!ticket)
        return;
    await attempt(() => changeTicket(ticket.id, what));
    await refreshConversation();
}

const changeState = () =>
    change({state: shownTicket()?.state === 'open' ? 'closed' : 'open'});
const changeAssignee = () =>
    change({assignee: shownTicket()?.assignee === 'ai agent' ? 'human agent' : 'ai agent'});

const keys = {
    '/': () => byId('search').focus(),
    '?': () => byId('shortcuts-dialog').showModal(),
    'l': backToTickets,
    'r': () => shownTicket() && focusComposer(),
    'a': changeAssignee,
    'c': changeState,
    'p': () => openPush(shownTicket()),
    'd': () => { byId('details').open = !byId('details').open; },
    'escape': backToTickets,
};

const isWriting = (target) =>
    target.matches('textarea, select, input:not([type="checkbox"], [type="radio"])');

function handleKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey || document.querySelector('dialog[open]'))
        return;
    const key = event.key.toLowerCase();
    if (!keys[key] || (isWriting(event.target) && key !== 'escape'))
        return;
    event.preventDefault();
    keys[key]();
}

function start() {
    prepareDialogs();
    startTickets((id) => (id === chosen ? followAddress().then(focusComposer) : openTicket(id)));
    startConversation(failure);
    startComposer(failure);
    startPush(() => notice('The push is on its way.'));
    startBranding(() => notice('The branding is saved.'), failure);
    startSchedules(() => notice('The schedules are saved.'), failure);
    byId('automatic').addEventListener('change', (event) =>
        attempt(() => saveAutomatic(event.target.checked)).then(showSettings));
    byId('assignee').addEventListener('change',
        (event) => change({assignee: event.target.value}));
    byId('ticket-automatic').addEventListener('change',
        (event) => change({automatic: event.target.checked}));
    byId('change-state').addEventListener('click', changeState);
    byId('open-push').addEventListener('click', () => openPush(shownTicket()));
    byId('open-shortcuts').addEventListener('click', keys['?']);
    byId('back').addEventListener('click', backToTickets);
    document.addEventListener('keydown', handleKey);
    window.addEventListener('hashchange', followAddress);
    followAddress();
    listen({connected: readAll, lost: showLost, ticket: takeTicket, settings: showSettings});
}

start();
